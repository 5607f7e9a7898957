#include "PanorelX11/Windows/SizeHints.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

// Fields and flags of WM_NORMAL_HINTS, from the conventions for clients.
enum Field {
    Flags = 0,
    MinimumSize = 5,
    MaximumSize = 7,
    Increment = 9,
    BaseSize = 15,
    Gravity = 17
};
constexpr std::uint32_t hasMinimumSize = 1 << 4;
constexpr std::uint32_t hasMaximumSize = 1 << 5;
constexpr std::uint32_t hasIncrement = 1 << 6;
constexpr std::uint32_t hasBaseSize = 1 << 8;
constexpr std::uint32_t hasGravity = 1 << 9;

int stepped(int asked, int base, int increment, int minimum, int maximum)
{
    int size = std::clamp(asked, minimum, std::max(minimum, maximum));
    if (increment > 1 && size > base)
        size = base + (size - base) / increment * increment;
    return std::max(size, minimum);
}

} // namespace

SizeHints SizeHints::fromValues(const std::vector<std::uint32_t> &values)
{
    SizeHints hints;
    const std::uint32_t flags = values.empty() ? 0 : values[Flags];
    const auto has = [&](std::uint32_t flag, Field first) {
        return (flags & flag) && values.size() > std::size_t(first) + (first == Gravity ? 0 : 1);
    };
    const auto read = [&](Field first, int least, int &width, int &height) {
        const auto usable = [&](std::uint32_t value) {
            return value >= std::uint32_t(least) && value <= INT16_MAX;
        };
        if (usable(values[first]))
            width = int(values[first]);
        if (usable(values[std::size_t(first) + 1]))
            height = int(values[std::size_t(first) + 1]);
    };
    if (has(hasMinimumSize, MinimumSize))
        read(MinimumSize, 1, hints.minimumWidth, hints.minimumHeight);
    if (has(hasMaximumSize, MaximumSize))
        read(MaximumSize, 1, hints.maximumWidth, hints.maximumHeight);
    if (has(hasIncrement, Increment))
        read(Increment, 1, hints.widthIncrement, hints.heightIncrement);
    if (has(hasBaseSize, BaseSize)) {
        read(BaseSize, 0, hints.baseWidth, hints.baseHeight);
        if (!(flags & hasMinimumSize)) {
            hints.minimumWidth = std::max(hints.baseWidth, 1);
            hints.minimumHeight = std::max(hints.baseHeight, 1);
        }
    } else if (flags & hasMinimumSize) {
        hints.baseWidth = hints.minimumWidth;
        hints.baseHeight = hints.minimumHeight;
    }
    if (has(hasGravity, Gravity) && values[Gravity] >= 1 && values[Gravity] <= 10)
        hints.gravity = values[Gravity];
    return hints;
}

PixelRect SizeHints::constrained(PixelRect client) const
{
    client.width = stepped(client.width, baseWidth, widthIncrement, minimumWidth, maximumWidth);
    client.height =
        stepped(client.height, baseHeight, heightIncrement, minimumHeight, maximumHeight);
    return client;
}

} // namespace Panorel::X11
