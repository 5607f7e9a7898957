#include "PanorelMac/Settings/MacSystemPreferences.h"

#include "PanorelMac/Settings/Preferences.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

namespace Panorel::Mac {

std::optional<PreferenceValue> MacSystemPreferences::value(const QString &domain,
                                                           const QString &key)
{
    return preferenceValue(domain, key);
}

void MacSystemPreferences::openDesktopSettings()
{
    @autoreleasepool {
        NSString *page = @"x-apple.systempreferences:com.apple.Desktop-Settings.extension";
        [NSWorkspace.sharedWorkspace openURL:[NSURL URLWithString:page]];
    }
}

} // namespace Panorel::Mac
