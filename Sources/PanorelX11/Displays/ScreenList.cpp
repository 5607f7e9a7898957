#include "PanorelX11/Displays/ScreenList.h"

#include "PanorelCore/Matching/CoordSpace.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

using Monitors = std::vector<Monitor>;

std::vector<Screen> flipped(const Monitors &monitors, double height)
{
    std::vector<Screen> screens;
    for (const Monitor &monitor : monitors) {
        screens.push_back({monitor.display, CoordSpace::flip(monitor.frame, height),
                           CoordSpace::flip(monitor.visibleFrame, height), monitor.name});
    }
    return screens;
}

/// The height that the receiver will flip around.
double heightFoundIn(const std::vector<Screen> &screens)
{
    const auto primary = std::ranges::find(
        screens, Point{}, [](const Screen &screen) { return screen.frame.origin(); });
    return (primary == screens.end() ? screens.front() : *primary).frame.height;
}

Monitors withFirst(Monitors monitors, std::size_t first)
{
    const auto begin = monitors.begin();
    std::rotate(begin, begin + std::ptrdiff_t(first), begin + std::ptrdiff_t(first) + 1);
    return monitors;
}

void dropMirrored(Monitors &monitors)
{
    Monitors kept;
    for (Monitor &monitor : monitors) {
        if (std::ranges::find(kept, monitor.frame, &Monitor::frame) == kept.end())
            kept.push_back(std::move(monitor));
    }
    monitors = std::move(kept);
}

} // namespace

std::vector<Screen> screenList(Monitors monitors)
{
    if (monitors.empty())
        return {};
    std::ranges::stable_sort(monitors, [](const Monitor &a, const Monitor &b) {
        if (a.isPrimary != b.isPrimary)
            return a.isPrimary;
        return a.connector < b.connector;
    });
    dropMirrored(monitors);

    const auto atOrigin =
        std::ranges::find(monitors, Point{}, [](const Monitor &m) { return m.frame.origin(); });
    if (atOrigin != monitors.end()) {
        const double height = atOrigin->frame.height;
        const auto screens = flipped(monitors, height);
        if (heightFoundIn(screens) == height)
            return screens;
        const auto index = std::size_t(atOrigin - monitors.begin());
        return flipped(withFirst(monitors, index), height);
    }
    // The first screen's height decides, unless the lower edge of a lower screen then happens to
    // lie at 0; the lowest of all screens has none below it.
    for (std::size_t first = 0; first < monitors.size(); ++first) {
        const Monitors order = withFirst(monitors, first);
        const double height = order.front().frame.height;
        auto screens = flipped(order, height);
        if (heightFoundIn(screens) == height)
            return screens;
    }
    return flipped(monitors, monitors.front().frame.height);
}

} // namespace Panorel::X11
