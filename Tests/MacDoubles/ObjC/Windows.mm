#include "MacDoubles/Desktop/MacDesktop.h"
#include "PanorelMac/Support/NsGeometry.h"

#import <AppKit/AppKit.h>

using namespace Panorel;
using namespace Panorel::MacDoubles;

@interface NSView (MovesToWindow)
- (void)moveToWindow:(NSWindow *)window;
@end

@implementation NSWindow

@synthesize frame = _frame, level = _level, collectionBehavior = _collectionBehavior,
            hidesOnDeactivate = _hidesOnDeactivate, releasedWhenClosed = _releasedWhenClosed;

- (instancetype)initWithContentRect:(NSRect)contentRect styleMask:(NSWindowStyleMask)style
{
    self = [super init];
    _frame = contentRect;
    _styleMask = style;
    _releasedWhenClosed = YES;
    self.contentView = [[[NSView alloc] init] autorelease];
    return self;
}

- (void)dealloc
{
    self.contentView = nil;
    [super dealloc];
}

- (NSView *)contentView
{
    return _contentView;
}

- (void)setContentView:(NSView *)view
{
    [_contentView moveToWindow:nil];
    [_contentView release];
    _contentView = [view retain];
    [_contentView moveToWindow:self];
}

- (NSWindowStyleMask)styleMask
{
    return _styleMask;
}

- (void)setStyleMask:(NSWindowStyleMask)style
{
    expectMainThread(__func__);
    if (style & NSWindowStyleMaskNonactivatingPanel && ![self isKindOfClass:NSPanel.class])
        addFault(QStringLiteral("a window that is no panel made non-activating"));
    _styleMask = style;
}

- (NSScreen *)screen
{
    for (NSScreen *screen in NSScreen.screens) {
        if (NSIntersectsRect(screen.frame, _frame))
            return screen;
    }
    return nil;
}

@end

@implementation NSPanel

- (instancetype)initWithContentRect:(NSRect)contentRect styleMask:(NSWindowStyleMask)style
{
    self = [super initWithContentRect:contentRect styleMask:style];
    self.hidesOnDeactivate = YES;
    return self;
}

@end

@implementation NSView

@synthesize toolTip = _toolTip;

- (void)dealloc
{
    [_toolTip release];
    [super dealloc];
}

- (NSWindow *)window
{
    return _window;
}

- (void)moveToWindow:(NSWindow *)window
{
    _window = window;
}

@end

@implementation NSImage

@synthesize accessibilityDescription = _accessibilityDescription;

/// Null for a symbol that the system doesn't have.
+ (instancetype)imageWithSystemSymbolName:(NSString *)symbolName
                 accessibilityDescription:(NSString *)description
{
    if (![symbolName isEqualToString:@"macwindow.on.rectangle"])
        return nil;
    NSImage *image = [[[self alloc] init] autorelease];
    image.accessibilityDescription = description;
    return image;
}

- (void)dealloc
{
    [_accessibilityDescription release];
    [super dealloc];
}

- (BOOL)isTemplate
{
    return _isTemplate;
}

- (void)setTemplate:(BOOL)isTemplate
{
    _isTemplate = isTemplate;
}

@end
