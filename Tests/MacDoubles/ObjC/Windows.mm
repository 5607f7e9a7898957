#include "MacDoubles/Desktop/MacDesktop.h"
#include "PanorelMac/Support/NsGeometry.h"

#import <AppKit/AppKit.h>

using namespace Panorel;
using namespace Panorel::MacDoubles;

@implementation NSWindow

@synthesize contentView = _contentView, frame = _frame, styleMask = _styleMask, level = _level,
            collectionBehavior = _collectionBehavior, hidesOnDeactivate = _hidesOnDeactivate,
            releasedWhenClosed = _releasedWhenClosed;

- (instancetype)initWithContentRect:(NSRect)contentRect styleMask:(NSWindowStyleMask)style
{
    self = [super init];
    _frame = contentRect;
    _styleMask = style;
    _hidesOnDeactivate = _releasedWhenClosed = YES; // the former as of a panel
    self.contentView = [[[NSView alloc] init] autorelease];
    return self;
}

- (void)dealloc
{
    self.contentView = nil;
    [super dealloc];
}

- (void)setContentView:(NSView *)view
{
    if (_contentView)
        _contentView->_window = nil;
    [_contentView release];
    _contentView = [view retain];
    if (view)
        view->_window = self;
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
@end

@implementation NSView

@synthesize window = _window, toolTip = _toolTip;

- (void)dealloc
{
    [_toolTip release];
    [super dealloc];
}

@end

@implementation NSImage

/// Null for a symbol that the system doesn't have, or that nobody could be told of.
+ (instancetype)imageWithSystemSymbolName:(NSString *)symbolName
                 accessibilityDescription:(NSString *)description
{
    if (![symbolName isEqualToString:@"macwindow.on.rectangle"] || !description)
        return nil;
    return [[[self alloc] init] autorelease];
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
