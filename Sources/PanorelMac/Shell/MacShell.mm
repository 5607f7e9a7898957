#include "PanorelMac/Shell/MacShell.h"

#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

namespace Panorel::Mac {

void MacShell::showOnAllDesktops(WindowHandle handle)
{
    @autoreleasepool {
        // The toolkit's handle is a view; one that is not in a window is none of ours to show.
        NSWindow *window = reinterpret_cast<NSView *>(handle).window;
        if ([window isKindOfClass:NSPanel.class]) // other windows don't know the style
            window.styleMask |= NSWindowStyleMaskNonactivatingPanel;
        window.level = NSStatusWindowLevel;
        window.collectionBehavior = NSWindowCollectionBehaviorCanJoinAllSpaces
                                    | NSWindowCollectionBehaviorFullScreenAuxiliary;
        window.hidesOnDeactivate = NO;
        window.releasedWhenClosed = NO;
    }
}

} // namespace Panorel::Mac
