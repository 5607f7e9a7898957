#include "MacDoubles/ObjC/StatusBar.h"

#include "MacDoubles/Desktop/MacDesktop.h"

#include <vector>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

std::vector<NSStatusItem *> shown; ///< the bar does not keep them

} // namespace

@implementation NSStatusBarButton

@synthesize target = _target, action = _action, image = _image;

- (void)dealloc
{
    [_image release];
    [super dealloc];
}

- (void)performClick:(id)sender
{
    [_target performSelector:_action withObject:self];
}

@end

@implementation NSStatusItem

- (instancetype)init
{
    self = [super init];
    const Rect frame = desktop().services.statusItemFrame.value_or(Rect{-9999, -9999, 24, 24});
    _window = [[NSWindow alloc]
        initWithContentRect:NSMakeRect(frame.x, frame.y, frame.width, frame.height)
                  styleMask:NSWindowStyleMaskBorderless];
    _button = [[NSStatusBarButton alloc] init];
    _window.contentView = _button;
    return self;
}

- (void)dealloc
{
    if (std::erase(shown, self) > 0)
        addFault(QStringLiteral("a status item released that still shows"));
    [_window release];
    [_button release];
    [super dealloc];
}

- (NSStatusBarButton *)button
{
    expectMainThread(__func__);
    return _button;
}

@end

@implementation NSStatusBar

+ (NSStatusBar *)systemStatusBar
{
    static NSStatusBar *bar = [[NSStatusBar alloc] init];
    return bar;
}

- (NSStatusItem *)statusItemWithLength:(CGFloat)length
{
    expectMainThread(__func__);
    if (length != NSSquareStatusItemLength)
        addFault(QStringLiteral("a status item that is no square"));
    NSStatusItem *item = [[[NSStatusItem alloc] init] autorelease];
    shown.push_back(item);
    return item;
}

- (void)removeStatusItem:(NSStatusItem *)item
{
    expectMainThread(__func__);
    if (std::erase(shown, item) == 0)
        addFault(QStringLiteral("a status item removed that does not show"));
}

- (NSStatusItem *)shownItem
{
    if (shown.size() > 1)
        addFault(QStringLiteral("two status items"));
    return shown.empty() ? nil : shown.front();
}

@end
