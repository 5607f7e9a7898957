#include "PanorelMac/Displays/MacScreens.h"

#include "PanorelMac/Displays/DisplayIdentities.h"
#include "PanorelMac/Displays/ReconfigurationCallback.h"
#include "PanorelMac/Support/NsGeometry.h"
#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

namespace Panorel::Mac {

namespace {

std::optional<DisplayNumber> numberOf(NSScreen *screen)
{
    id number = [screen.deviceDescription objectForKey:@"NSScreenNumber"];
    if (![number isKindOfClass:NSNumber.class])
        return {};
    return DisplayNumber([number unsignedIntValue]);
}

} // namespace

MacScreens::MacScreens() = default;
MacScreens::~MacScreens() = default;

std::vector<Screen> MacScreens::screens()
{
    @autoreleasepool {
        std::vector<Screen> screens;
        for (NSScreen *screen in NSScreen.screens)
            screens.push_back({numberOf(screen), rectOf(screen.frame), rectOf(screen.visibleFrame),
                               textOf(screen.localizedName).value_or(QString())});
        return screens;
    }
}

DisplayIdentity MacScreens::identity(DisplayNumber display)
{
    return displayIdentity(display);
}

void MacScreens::setChangeCallback(std::function<void()> changed)
{
    m_callback.reset();
    if (changed)
        m_callback = std::make_unique<ReconfigurationCallback>(std::move(changed));
}

} // namespace Panorel::Mac
