#include "PanorelX11/Windows/PlacementWatch.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

/// How much later than the first answer that to a repeated request may come.
constexpr auto echoTime = 2s;

/// Whether the client has moved as one that makes room for its shadow: to the top left, by no more
/// than its width, or not at all.
bool makesRoomForShadow(const PixelRect &was, const FrameGeometry &is)
{
    const Extents shadow = is.shadow.value_or(Extents{});
    return is.client.x <= was.x && is.client.x >= was.x - shadow.left && is.client.y <= was.y
           && is.client.y >= was.y - shadow.top;
}

/// Whether another wording of the request that brought it to `was` may have moved it: no two of
/// them differ by more than the decorations.
bool isAnswerToOtherWording(const PixelRect &was, const FrameGeometry &is)
{
    const auto &[left, right, top, bottom] = is.decorations;
    const int most = std::max({left, right, top, bottom, Placement::nudge});
    return is.client.width == was.width && is.client.height == was.height
           && std::abs(is.client.x - was.x) <= most && std::abs(is.client.y - was.y) <= most;
}

} // namespace

void PlacementWatch::add(xcb_window_t window, const Place &place, const Placement &placement,
                         const ClientReading &reading, TimePoint now)
{
    const Rect frame = reading.geometry.visibleFrame().toRect();
    const bool isInPlace = place.target.position.value_or(frame.origin()) == frame.origin()
                           && place.target.size.value_or(frame.size()) == frame.size();
    const bool hasReason =
        placement.hasRepeated() || placement.hasUnmaximized() || reading.geometry.decoratesItself();
    if (!isInPlace || !hasReason || reading.isPartlyMaximized())
        return;
    m_windows.insert_or_assign(window, Watched{place, reading.geometry,
                                               placement.hasRepeated() ? now + echoTime : now,
                                               placement.hasUnmaximized()});
}

void PlacementWatch::noteChange(xcb_window_t window)
{
    const auto watched = m_windows.find(window);
    if (watched != m_windows.end())
        watched->second.hasChanged = true;
}

bool PlacementWatch::hasChanged() const
{
    return std::ranges::any_of(m_windows,
                               [](const auto &entry) { return entry.second.hasChanged; });
}

std::vector<xcb_window_t> PlacementWatch::changed(std::uint64_t displayChanges, TimePoint now)
{
    std::erase_if(m_windows, [&](const auto &entry) {
        const Place &place = entry.second.place;
        return now >= place.heldUntil || place.displayChanges != displayChanges;
    });
    std::vector<xcb_window_t> windows;
    for (const auto &[window, watched] : m_windows) {
        if (watched.hasChanged)
            windows.push_back(window);
    }
    return windows;
}

std::optional<PlacementWatch::Place>
PlacementWatch::judge(xcb_window_t window, const std::optional<ClientReading> &reading, bool isHeld,
                      TimePoint now)
{
    const auto entry = m_windows.find(window);
    if (entry == m_windows.end())
        return std::nullopt;
    Watched &watched = entry->second;
    watched.hasChanged = false;
    const Place place = watched.place;
    if (!reading || !isNobodysDoing(watched, *reading, isHeld, now))
        m_windows.erase(entry);
    else if (reading->geometry.visibleFrame() != watched.geometry.visibleFrame())
        return place;
    return std::nullopt;
}

bool PlacementWatch::isNobodysDoing(const Watched &watched, const ClientReading &reading,
                                    bool isHeld, TimePoint now)
{
    const PixelRect &was = watched.geometry.client;
    if (reading.isPartlyMaximized() || reading.isFullScreen)
        return false;
    if (reading.geometry.client == was) // whoever moves a window moves its client
        return true;
    return !isHeld
           && ((watched.mayResizeItself && makesRoomForShadow(was, reading.geometry))
               || (now < watched.echoUntil && isAnswerToOtherWording(was, reading.geometry)));
}

} // namespace Panorel::X11
