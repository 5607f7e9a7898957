#include "PanorelMac/Settings/MacLoginItem.h"

#include "PanorelMac/Support/Retained.h"

#import <ServiceManagement/ServiceManagement.h>

namespace Panorel::Mac {

void MacLoginItem::setRegistered(bool registered)
{
    @autoreleasepool {
        SMAppService *service = SMAppService.mainAppService;
        if (registered)
            [service registerAndReturnError:nullptr];
        else
            [service unregisterAndReturnError:nullptr];
    }
}

} // namespace Panorel::Mac
