#include "PanorelMac/Displays/DisplayIdentities.h"

#include "PanorelMac/Support/CfText.h"

#include <ColorSync/ColorSync.h>
#include <CoreGraphics/CoreGraphics.h>

namespace Panorel::Mac {

DisplayIdentity displayIdentity(DisplayNumber display)
{
    // The numbers of a display that has left would be 0xffffffff.
    if (!CGDisplayIsOnline(display))
        return {};
    DisplayIdentity identity;
    const auto uuid = CfRef<CFUUIDRef>::adopt(CGDisplayCreateUUIDFromDisplayID(display));
    if (uuid) {
        const auto text =
            CfRef<CFStringRef>::adopt(CFUUIDCreateString(kCFAllocatorDefault, uuid.get()));
        if (text)
            identity.uuid = toQString(text.get());
    }
    identity.vendorNumber = CGDisplayVendorNumber(display);
    identity.modelNumber = CGDisplayModelNumber(display);
    identity.serialNumber = CGDisplaySerialNumber(display);
    identity.isBuiltin = CGDisplayIsBuiltin(display);
    return identity;
}

} // namespace Panorel::Mac
