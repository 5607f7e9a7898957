#include "MacDoubles/Desktop/MacDesktop.h"
#include "PanorelMac/Support/NsText.h"

#import <AppKit/AppKit.h>

using namespace Panorel;
using namespace Panorel::MacDoubles;
using Panorel::Mac::nsText;

namespace {

NSRect nsRect(const Rect &rect)
{
    return NSMakeRect(rect.x, rect.y, rect.width, rect.height);
}

} // namespace

/// As it was when it was asked for.
@implementation NSScreen

+ (NSArray<NSScreen *> *)screens
{
    NSMutableArray *all = [NSMutableArray array];
    for (const Screen &screen : desktop().platform.screens().screens())
        [all addObject:[NSScreen of:std::make_shared<Screen>(screen)]];
    return all;
}

- (NSRect)frame
{
    return nsRect(valueOf<Screen>(self).frame);
}

- (NSRect)visibleFrame
{
    return nsRect(valueOf<Screen>(self).visibleFrame);
}

- (NSString *)localizedName
{
    return nsText(valueOf<Screen>(self).localizedName);
}

- (NSDictionary *)deviceDescription
{
    const std::optional<DisplayNumber> number = valueOf<Screen>(self).displayNumber;
    return number ? @{@"NSScreenNumber" : [NSNumber numberWithUnsignedInt:*number]} : @{};
}

@end
