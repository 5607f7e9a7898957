#include "PanorelX11/Windows/Placement.h"

#include <algorithm>
#include <cmath>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

/// How far a work area may be off and still be meant.
constexpr double areaTolerance = 3;

constexpr auto firstPatience = 40ms;
constexpr auto firstPatienceOfSelfDecorated = 120ms;
constexpr auto longestPatience = 640ms;
/// With a window manager that does not come to a request: it may have been replaced.
constexpr auto patienceWithSlowManager = 2s;

/// Clients that decorate themselves animate their shadow, and with it where their frame lies.
constexpr auto selfDecoratedCalm = 80ms;
/// How long such a client may take to notice that it is no longer maximised. Before its shadow is
/// back it still lays itself out for the old state, and may yet return to a size of its own. It
/// may be slow, for it waits for the compositor between two of its frames; where there is none,
/// no shadow comes and a client is quick.
constexpr auto shadowPatience = 1200ms;
constexpr auto patienceWithoutShadow = 400ms;
/// Decorations follow a change of state a little later.
constexpr auto stateChangeCalm = 40ms;
/// Where the window manager comes to a request at once: after this long a maximised window that
/// does not fill the work area never will, as the window manager sees another one.
constexpr auto maximizedCalm = 300ms;

constexpr int requestsForSize = 3;
constexpr int requestsForSizeUnanswered = 5;
constexpr int requestsForMaximizing = 4;

/// Whether an edge lies where the area's does. `outwards` is how far it lies beyond: some window
/// managers push the borders of a maximised window out of the area.
bool isNear(double outwards, int border)
{
    return outwards >= -areaTolerance && outwards <= std::max<double>(areaTolerance, border);
}

bool beginsWith(const Point &origin, const Rect &area, const Extents &borders)
{
    return isNear(area.minX() - origin.x, borders.left)
           && isNear(area.minY() - origin.y, borders.top);
}

bool fills(const Rect &frame, const Rect &area, const Extents &borders)
{
    return beginsWith(frame.origin(), area, borders)
           && isNear(frame.maxX() - area.maxX(), borders.right)
           && isNear(frame.maxY() - area.maxY(), borders.bottom);
}

bool fills(const FrameGeometry &geometry, const Rect &area)
{
    return fills(geometry.visibleFrame().toRect(), area, geometry.decorations);
}

bool hasCentreOf(const Rect &area, const PixelRect &frame)
{
    const double x = frame.x + frame.width / 2.0;
    const double y = frame.y + frame.height / 2.0;
    return x >= area.minX() && x < area.maxX() && y >= area.minY() && y < area.maxY();
}

} // namespace

Placement::Placement(xcb_window_t window, const PlacementTarget &target,
                     const WindowManager &windowManager)
    : m_window(window), m_target(target), m_windowManager(windowManager)
{}

void Placement::begin(const ClientReading &reading, const std::vector<Rect> &workAreas,
                      bool isUnsure, TimePoint now)
{
    m_lastGeometry = reading.geometry;
    m_stableSince = now;
    m_hasRepeated = isUnsure;
    chooseArea(reading, workAreas);
    chooseRectangle(reading);
    if (reading.isFullScreen || (!m_target.position && !m_target.size)
        || (!isUnsure && isAlreadyThere(reading)))
        return giveUp();

    const bool onItsMonitor = m_area && hasCentreOf(*m_area, reading.geometry.visibleFrame());
    if (onItsMonitor && reading.isMaximized())
        startMaximizing(now, reading);
    else if (reading.isPartlyMaximized())
        startUnmaximizing(now, reading);
    else
        startMoving(reading, now);
}

void Placement::judge(const std::optional<ClientReading> &reading, TimePoint now,
                      TimePoint deadline)
{
    m_hasChanged = false;
    if (!reading || reading->isFullScreen || now >= deadline)
        return giveUp();
    const FrameGeometry &geometry = reading->geometry;
    if (geometry.client.width != m_lastGeometry.client.width
        || geometry.client.height != m_lastGeometry.client.height)
        m_resized = m_stableSince = now;
    if (geometry.decorations != m_lastGeometry.decorations
        || geometry.shadow != m_lastGeometry.shadow)
        m_stableSince = now;
    m_lastGeometry = geometry;

    const TimePoint due = mendingTime();
    m_isDue = now >= due;
    m_nextLook = due;
    switch (m_phase) {
    case Phase::Unmaximizing:
        judgeUnmaximizing(*reading, now);
        break;
    case Phase::Moving:
        judgeMoving(*reading, now);
        break;
    case Phase::Maximizing:
        judgeMaximizing(*reading, now);
        break;
    case Phase::Done:
        break;
    }
    // Nothing more to send: only an event, or the end of the time, can change anything.
    m_nextLook = m_nextLook > now ? std::min(m_nextLook, deadline) : deadline;
}

void Placement::noteHandled(TimePoint now)
{
    m_handled = now;
    m_hasChanged = true;
}

Placement::TimePoint Placement::mendingTime() const
{
    // What the client does about the request comes later than what the window manager does.
    return m_handled ? *m_handled + m_patience : m_sent + patienceWithSlowManager;
}

void Placement::chooseArea(const ClientReading &reading, const std::vector<Rect> &workAreas)
{
    if (!m_target.position || !m_windowManager.supports("_NET_WM_STATE_MAXIMIZED_VERT"))
        return;
    const Point &position = *m_target.position;
    const Extents &borders = reading.geometry.decorations;
    const auto isMeant = [&](const Rect &area) {
        if (m_target.size)
            return fills(Rect::of(position, *m_target.size), area, borders);
        return reading.isMaximized() && beginsWith(position, area, borders);
    };
    const auto area = std::ranges::find_if(workAreas, isMeant);
    if (area != workAreas.end())
        m_area = *area;
}

void Placement::chooseRectangle(const ClientReading &reading)
{
    const PixelRect frame = reading.geometry.visibleFrame();
    if (m_area) {
        // Window managers maximise a window on the monitor that it is on; the rectangle is what
        // it returns to when the user un-maximises it.
        m_rectangle = movedInto(*m_area, frame);
        const bool keepsSize =
            m_rectangle.width == frame.width && m_rectangle.height == frame.height;
        m_aspect =
            keepsSize ? WindowManager::Aspect::Position : WindowManager::Aspect::PositionAndSize;
        return;
    }
    const Rect current = frame.toRect();
    m_rectangle = nearestPixels(Rect::of(m_target.position.value_or(current.origin()),
                                         m_target.size.value_or(current.size())));
    m_aspect = !m_target.size       ? WindowManager::Aspect::Position
               : !m_target.position ? WindowManager::Aspect::Size
                                    : WindowManager::Aspect::PositionAndSize;
}

void Placement::startUnmaximizing(TimePoint now, const ClientReading &reading)
{
    m_phase = Phase::Unmaximizing;
    m_requests = 0;
    sendState(false, now, reading);
}

void Placement::startMoving(const ClientReading &reading, TimePoint now)
{
    m_phase = Phase::Moving;
    m_requests = 0;
    chooseRectangle(reading);
    if (m_area && m_rectangle == reading.geometry.visibleFrame())
        return startMaximizing(now, reading);
    sendMove(reading, now);
}

void Placement::startMaximizing(TimePoint now, const ClientReading &reading)
{
    m_phase = Phase::Maximizing;
    m_requests = 0;
    sendState(true, now, reading);
}

void Placement::judgeUnmaximizing(const ClientReading &reading, TimePoint now)
{
    if (!reading.isPartlyMaximized()) {
        // What is to be maximised again has to have its own size back first, or it would lose it;
        // how its shadow grows meanwhile does not matter.
        const TimePoint calm = m_area ? m_resized + stateChangeCalm : calmTime(reading);
        if (now < calm) {
            m_nextLook = calm;
            return;
        }
        m_maximizedShadow.reset(); // has been waited for
        startMoving(reading, now);
    } else if (m_isDue) {
        sendState(false, now, reading);
    }
}

void Placement::judgeMoving(const ClientReading &reading, TimePoint now)
{
    const bool isPositioned = isPositionRight(reading);
    // A client may refuse a size for reasons that its hints don't tell.
    // A window manager that says nothing may still be at work on it: it moves the frame first.
    const int enough = m_handled ? requestsForSize : requestsForSizeUnanswered;
    const bool isAsGoodAsItGets =
        isPositioned && m_isDue && m_requests >= enough && now >= m_stableSince + selfDecoratedCalm;
    if ((isPositioned && isSizeRight(reading)) || isAsGoodAsItGets) {
        if (m_area)
            startMaximizing(now, reading); // its calm is waited for in that state
        else if (m_hasRepeated && !m_handled && !m_isDue)
            return; // the answer to the other request is still to come
        else if (now < calmTime(reading))
            m_nextLook = calmTime(reading);
        else
            m_phase = Phase::Done;
    } else if (m_isDue) {
        const bool closeEnough = m_area && hasCentreOf(*m_area, reading.geometry.visibleFrame());
        if (closeEnough)
            startMaximizing(now, reading);
        else
            sendMove(reading, now);
    }
}

void Placement::judgeMaximizing(const ClientReading &reading, TimePoint now)
{
    const PixelRect frame = reading.geometry.visibleFrame();
    if (reading.isMaximized() && hasCentreOf(*m_area, frame)) {
        const auto calm = fills(reading.geometry, *m_area) ? calmTime(reading) : calmOutsideArea();
        if (now >= calm)
            m_phase = Phase::Done;
        else
            m_nextLook = calm;
    } else if (m_isDue && m_requests < requestsForMaximizing) {
        sendState(true, now, reading);
    } else if (m_isDue && m_target.size && !reading.isPartlyMaximized()) {
        // It can't be maximised; its rectangle can still be had.
        m_area.reset();
        startMoving(reading, now);
    }
}

void Placement::sendMove(const ClientReading &reading, TimePoint now)
{
    const PixelRect client = reading.geometry.clientFor(m_rectangle);
    const Extents &decorations = reading.geometry.decorations;
    const auto place = [&](const PixelRect &to) {
        m_windowManager.place(m_window, to, m_aspect, decorations, reading.hints.gravity);
    };
    const bool isMisplaced = !isPositionRight(reading);
    if (m_requests == 1 && isMisplaced) {
        m_windowManager.placeStatic(m_window, client, m_aspect);
    } else {
        // A window manager that believes the window to be there already does nothing; it has to
        // be led away first.
        if (m_requests == 2 && isMisplaced)
            place({client.x + nudge, client.y + nudge, client.width, client.height});
        place(client);
    }
    countRequest(now, reading);
}

void Placement::sendState(bool maximized, TimePoint now, const ClientReading &reading)
{
    m_windowManager.setMaximized(m_window, maximized);
    m_stateChanged = true;
    m_hasUnmaximized = !maximized;
    m_maximizedShadow = maximized ? std::nullopt : reading.geometry.shadow;
    if (m_maximizedShadow)
        m_shadowPatience = m_windowManager.isComposited() ? shadowPatience : patienceWithoutShadow;
    // Calm is counted from here: the extents of before are not yet those that go with the state.
    m_resized = m_stableSince = now;
    countRequest(now, reading);
}

void Placement::countRequest(TimePoint now, const ClientReading &reading)
{
    const auto first =
        reading.geometry.decoratesItself() ? firstPatienceOfSelfDecorated : firstPatience;
    m_patience = std::min<std::chrono::milliseconds>(first * (1 << std::min(m_requests, 4)),
                                                     longestPatience);
    m_hasRepeated = m_hasRepeated || (m_requests > 0 && !m_handled);
    m_requests += 1;
    m_sent = now;
    m_handled.reset();
    m_nextLook = mendingTime();
}

bool Placement::isPositionRight(const ClientReading &reading) const
{
    const PixelRect frame = reading.geometry.visibleFrame();
    return m_aspect == WindowManager::Aspect::Size
           || (frame.x == m_rectangle.x && frame.y == m_rectangle.y);
}

bool Placement::isSizeRight(const ClientReading &reading) const
{
    if (m_aspect == WindowManager::Aspect::Position)
        return true;
    const auto sameSize = [&](const PixelRect &wanted) {
        return reading.geometry.client.width == wanted.width
               && reading.geometry.client.height == wanted.height;
    };
    const PixelRect wanted = reading.geometry.clientFor(m_rectangle);
    return sameSize(wanted) || sameSize(reading.hints.constrained(wanted));
}

bool Placement::isAlreadyThere(const ClientReading &reading) const
{
    if (m_area)
        return reading.isMaximized() && fills(reading.geometry, *m_area);
    return isPositionRight(reading) && isSizeRight(reading);
}

Placement::TimePoint Placement::calmOutsideArea() const
{
    if (!m_handled)
        return TimePoint::max();
    // A window manager that was long in coming to it may be as long between state and frame.
    const auto slowness = (*m_handled - m_sent) * 4;
    return std::max(m_stableSince, *m_handled)
           + std::max<TimePoint::duration>(maximizedCalm, slowness);
}

Placement::TimePoint Placement::calmTime(const ClientReading &reading) const
{
    if (reading.geometry.decoratesItself())
        return m_stableSince
               + (reading.geometry.shadow == m_maximizedShadow ? m_shadowPatience
                                                               : selfDecoratedCalm);
    return m_stateChanged ? m_stableSince + stateChangeCalm : m_stableSince;
}

} // namespace Panorel::X11
