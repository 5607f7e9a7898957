#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/ManagerFence.h"
#include "PanorelX11/Windows/Monitors.h"
#include "PanorelX11/Windows/PlacementWatch.h"
#include "PanorelX11/Windows/RecentReadings.h"
#include "PanorelX11/Windows/WindowManager.h"

#include <map>
#include <set>
#include <unordered_map>

namespace Panorel::X11 {

/// Places windows: many at a time, each until it is in place, has gone, or its time is over.
///
/// place() asks and waits for no window, only after a change of the displays for the window manager
/// to have come to that. What it began goes on whenever somebody waits
/// for a frame or calls processEvents(), and ends for good with the next change of the displays,
/// with a newer request for the window, and when the user takes hold of it.
///
/// What leaves its place afterwards by nobody's wish is put back.
class WindowPlacer {
public:
    using TimePoint = EventPump::TimePoint;

    /// All of them outlive it.
    WindowPlacer(const XConnection &connection, EventPump &pump, const ClientReader &reader,
                 RecentReadings &readings, const WindowManager &windowManager, ManagerFence &fence,
                 Monitors &monitors);

    /// Sent with the next wait, so that a window manager that draws between two requests has all of
    /// them before it draws.
    void place(xcb_window_t window, const PlacementTarget &target);

    /// The visible frame where the window came to rest; while it is being placed, waits for that.
    /// Absent where it has gone. Windows that were placed are read together once they are at
    /// rest, and each again if it has changed by the time it is asked for.
    std::optional<PixelRect> awaitFrame(xcb_window_t window);

    /// Takes up where events or the time allow it. Never waits for a window.
    void processEvents();

    /// When processEvents() is due even if no event comes; absent while nothing is being placed.
    std::optional<TimePoint> nextLook() const;

private:
    struct Pending {
        Placement placement;
        PlacementWatch::Place place;
        TimePoint deadline;         ///< where the window manager answers at once
        ManagerFence::Number fence; ///< behind the last request
        TimePoint looked;           ///< when it was last read
    };

    void awaitDisplayChange();
    void begin(xcb_window_t window, const PlacementTarget &target, TimePoint heldUntil);
    void lookAtPlaced();
    void lookAtPending();
    void noteEvent(const xcb_generic_event_t &event);
    void noteHandled(TimePoint now);
    TimePoint nextLook(const Pending &pending) const;
    TimePoint deadlineOf(const Pending &pending) const;
    std::optional<ClientReading> readingToStartFrom(xcb_window_t window, bool isUnsure);
    void readAtRest(xcb_window_t window);
    void look();
    std::optional<Point> pointerWithButtonDown() const;

    const XConnection &m_connection;
    EventPump &m_pump;
    const ClientReader &m_reader;
    RecentReadings &m_readings;
    const WindowManager &m_windowManager;
    ManagerFence &m_fence;
    Monitors &m_monitors;
    std::uint64_t m_handledChanges = 0; ///< of the displays, that the window manager has come to
    std::map<xcb_window_t, Pending> m_pending;
    PlacementWatch m_watch;
    std::set<xcb_window_t> m_unread; ///< placed, and its frame not asked for
    std::unordered_map<xcb_window_t, PixelRect> m_restFrames; ///< read and unchanged since
    TimePoint m_lastAnswer{}; ///< when a window was last seen to change
};

} // namespace Panorel::X11
