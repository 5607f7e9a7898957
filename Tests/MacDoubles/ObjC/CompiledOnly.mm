#import <AppKit/AppKit.h>
#import <ServiceManagement/ServiceManagement.h>
#import <Sparkle/Sparkle.h>

// What the port is compiled and linked against, and no test calls.

@implementation NSApplication
@end

@implementation NSWorkspaceOpenConfiguration
@end

@implementation NSWindow
@end

@implementation NSPanel
@end

@implementation NSView
@end

@implementation NSImage
@end

@implementation NSStatusBarButton
@end

@implementation NSStatusItem
@end

@implementation NSStatusBar
@end

@implementation SMAppService
@end

@implementation SPUStandardUpdaterController
@end
