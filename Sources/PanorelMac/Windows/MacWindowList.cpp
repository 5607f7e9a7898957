#include "PanorelMac/Windows/MacWindowList.h"

#include "PanorelMac/Support/CfValues.h"

#include <CoreGraphics/CoreGraphics.h>

#include <limits>

namespace Panorel::Mac {

namespace {

std::optional<ProcessIdentifier> processOf(CFTypeRef number)
{
    using Limits = std::numeric_limits<ProcessIdentifier>;
    const auto pid = toInteger(number);
    if (!pid || *pid < Limits::min() || *pid > Limits::max())
        return {};
    return ProcessIdentifier(*pid);
}

std::optional<Rect> rectOf(CFTypeRef object)
{
    const auto dictionary = cfCast<CFDictionaryRef>(object);
    CGRect rect{};
    if (!dictionary || !CGRectMakeWithDictionaryRepresentation(dictionary, &rect))
        return {};
    return Rect{rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

/// Nothing is known of an entry that is no dictionary, but it counts in the order.
WindowListEntry entryOf(CFTypeRef object)
{
    const auto described = cfCast<CFDictionaryRef>(object);
    if (!described)
        return {};
    const auto value = [=](CFStringRef key) { return CFDictionaryGetValue(described, key); };
    return {toInteger(value(kCGWindowLayer)), processOf(value(kCGWindowOwnerPID)),
            rectOf(value(kCGWindowBounds)), toDouble(value(kCGWindowAlpha))};
}

} // namespace

std::optional<std::vector<WindowListEntry>> MacWindowList::onScreenWindows()
{
    const auto list = CfRef<CFArrayRef>::adopt(CGWindowListCopyWindowInfo(
        kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements, kCGNullWindowID));
    if (!list)
        return {};
    std::vector<WindowListEntry> entries;
    for (CFIndex i = 0; i < CFArrayGetCount(list.get()); ++i)
        entries.push_back(entryOf(CFArrayGetValueAtIndex(list.get(), i)));
    return entries;
}

} // namespace Panorel::Mac
