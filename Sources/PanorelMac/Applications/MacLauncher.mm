#include "PanorelMac/Applications/MacLauncher.h"

#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

namespace Panorel::Mac {

std::optional<QString> MacLauncher::locate(const QString &bundleID)
{
    @autoreleasepool {
        NSURL *url =
            [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:nsText(bundleID)];
        return textOf(url.path);
    }
}

void MacLauncher::open(const QString &location)
{
    @autoreleasepool {
        if (location.isEmpty())
            return; // an empty path makes no URL
        [NSWorkspace.sharedWorkspace openApplicationAtURL:[NSURL fileURLWithPath:nsText(location)]
                                            configuration:NSWorkspaceOpenConfiguration.configuration
                                        completionHandler:nil];
    }
}

} // namespace Panorel::Mac
