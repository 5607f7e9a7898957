#include "PanorelMac/DesktopPicture/MacDesktopPicture.h"

#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

#include <QFileInfo>

namespace Panorel::Mac {

void MacDesktopPicture::setDesktopPicture(const QString &path)
{
    @autoreleasepool {
        // The system may take a missing file for a wish to see none.
        if (!QFileInfo(path).isFile())
            return;
        NSURL *url = [NSURL fileURLWithPath:nsText(path)];
        for (NSScreen *screen in NSScreen.screens)
            [NSWorkspace.sharedWorkspace setDesktopImageURL:url
                                                  forScreen:screen
                                                    options:@{}
                                                      error:nullptr];
    }
}

} // namespace Panorel::Mac
