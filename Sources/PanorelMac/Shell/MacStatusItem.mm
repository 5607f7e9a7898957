#include "PanorelMac/Shell/MacStatusItem.h"

#include "PanorelCore/Matching/CoordSpace.h"
#include "PanorelMac/Support/MainThread.h"
#include "PanorelMac/Support/NsGeometry.h"
#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

using Pressed = std::function<void()>;

/// Where the button sends its presses. They are told from the event loop and not within the
/// button's own handling, which must not lose its item.
@interface PanorelStatusItemTarget : NSObject {
    const std::weak_ptr<const Pressed> *_pressed;
}
- (instancetype)initWithPressed:(const std::shared_ptr<const Pressed> &)pressed;
- (void)clicked:(id)sender;
@end

@implementation PanorelStatusItemTarget

- (instancetype)initWithPressed:(const std::shared_ptr<const Pressed> &)pressed
{
    self = [super init];
    if (self)
        _pressed = new std::weak_ptr<const Pressed>(pressed);
    return self;
}

- (void)dealloc
{
    delete _pressed;
    [super dealloc];
}

- (void)clicked:(id)sender
{
    const std::weak_ptr<const Pressed> held = *_pressed;
    Panorel::Mac::runOnMainThread([held] {
        if (const auto pressed = held.lock())
            (*pressed)();
    });
}

@end

namespace Panorel::Mac {

namespace {

NSImage *symbol()
{
    NSImage *image = [NSImage imageWithSystemSymbolName:@"macwindow.on.rectangle"
                               accessibilityDescription:@"Panorel"];
    [image setTemplate:YES];
    return image;
}

/// Of the screen whose top is the origin of the top-left space; the first in the usual case.
double primaryHeight()
{
    NSArray<NSScreen *> *screens = NSScreen.screens;
    for (NSScreen *screen in screens) {
        if (NSEqualPoints(screen.frame.origin, NSZeroPoint))
            return screen.frame.size.height;
    }
    return screens.count == 0 ? 0 : [screens objectAtIndex:0].frame.size.height;
}

} // namespace

class MacStatusItem::Item {
public:
    explicit Item(Pressed pressed)
        : m_pressed(std::make_shared<const Pressed>(std::move(pressed))),
          m_target(Target::adopt([[PanorelStatusItemTarget alloc] initWithPressed:m_pressed])),
          m_item(Retained<NSStatusItem *>::share(
              [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength]))
    {
        button().image = symbol();
        button().target = m_target.get(); // which the button does not keep
        button().action = @selector(clicked:);
    }
    ~Item()
    {
        button().target = nil;
        [NSStatusBar.systemStatusBar removeStatusItem:m_item.get()];
    }
    Item(const Item &) = delete;
    Item &operator=(const Item &) = delete;

    NSStatusBarButton *button() const { return m_item.get().button; }

private:
    using Target = Retained<PanorelStatusItemTarget *>;

    std::shared_ptr<const Pressed> m_pressed;
    Target m_target;
    Retained<NSStatusItem *> m_item;
};

MacStatusItem::MacStatusItem() = default;

MacStatusItem::~MacStatusItem()
{
    hide();
}

void MacStatusItem::show(Pressed pressed)
{
    @autoreleasepool {
        m_item.reset();
        m_item = std::make_unique<Item>(std::move(pressed));
        m_item->button().toolTip = nsText(m_toolTip);
    }
}

void MacStatusItem::hide()
{
    @autoreleasepool {
        m_item.reset();
    }
}

void MacStatusItem::setToolTip(const QString &text)
{
    @autoreleasepool {
        m_toolTip = text;
        if (m_item)
            m_item->button().toolTip = nsText(text);
    }
}

std::optional<Rect> MacStatusItem::buttonFrame() const
{
    @autoreleasepool {
        NSWindow *window = m_item ? m_item->button().window : nil;
        if (!window || !window.screen)
            return {};
        return CoordSpace::flip(rectOf(window.frame), primaryHeight());
    }
}

} // namespace Panorel::Mac
