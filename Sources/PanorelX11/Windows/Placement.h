#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/EventPump.h"
#include "PanorelX11/Windows/WindowManager.h"

#include <optional>
#include <vector>

namespace Panorel::X11 {

/// Where a window is wanted, as its visible frame; an absent value is left as it is.
struct PlacementTarget {
    std::optional<Point> position;
    std::optional<Size> size;
};

/// The placing of one window, from the first request until it is in place or given up.
///
/// A window manager is asked, not told: it may answer late, miscount its own decorations, clamp
/// to monitors that have gone, or refuse. So each reading of the window is judged, and a wrong
/// one is mended with another wording of the same request, at growing intervals. Reads and waits
/// for nothing itself: WindowPlacer does both for all windows together.
class Placement {
public:
    using TimePoint = EventPump::TimePoint;

    /// So many pixels a window is led away that its window manager believes to be in place.
    static constexpr int nudge = 8;

    /// The window manager outlives it.
    Placement(xcb_window_t window, const PlacementTarget &target,
              const WindowManager &windowManager);

    /// Sends the first request for the window as it was just read, with the work areas of now.
    /// `isUnsure`: an earlier request is still under way, so that a window that seems in place may
    /// yet leave it.
    void begin(const ClientReading &reading, const std::vector<Rect> &workAreas, bool isUnsure,
               TimePoint now);

    /// Judges a reading and sends what follows from it; an absent one is a window that has gone.
    /// `deadline`: then it is given up; it may be put off later.
    void judge(const std::optional<ClientReading> &reading, TimePoint now, TimePoint deadline);

    /// An event told of a change.
    void noteChange() { m_hasChanged = true; }

    /// The window manager has come to the last request.
    void noteHandled(TimePoint now);

    void giveUp() { m_phase = Phase::Done; }

    bool isDone() const { return m_phase == Phase::Done; }
    /// Whether a request was sent before the answer to the one before it was known, so that the
    /// window may yet be moved once more, and for a moment elsewhere.
    bool hasRepeated() const { return m_hasRepeated; }
    bool hasUnmaximized() const { return m_hasUnmaximized; }
    /// Whether the client has to leave the maximised state at its own pace, for it draws its own
    /// decorations.
    bool dependsOnClient() const { return m_hasUnmaximized && m_lastGeometry.decoratesItself(); }
    /// Whether a change was noted that no reading has been judged for.
    bool hasChanged() const { return m_hasChanged; }
    /// Absent while the window manager has not come to the last request.
    std::optional<TimePoint> handled() const { return m_handled; }
    /// When the last request was sent.
    TimePoint sent() const { return m_sent; }
    /// When to judge the next reading even if no event comes.
    TimePoint nextLook() const { return m_nextLook; }
    /// When the current request counts as unanswered or wrongly answered.
    TimePoint mendingTime() const;

private:
    enum class Phase {
        Unmaximizing, ///< the state has to go before the window can be moved
        Moving,       ///< towards m_rectangle
        Maximizing,   ///< it is on its monitor, the state is wanted
        Done,
    };

    void chooseArea(const ClientReading &reading, const std::vector<Rect> &workAreas);
    void chooseRectangle(const ClientReading &reading);
    void startUnmaximizing(TimePoint now, const ClientReading &reading);
    void startMoving(const ClientReading &reading, TimePoint now);
    void startMaximizing(TimePoint now, const ClientReading &reading);
    void judgeUnmaximizing(const ClientReading &reading, TimePoint now);
    void judgeMoving(const ClientReading &reading, TimePoint now);
    void judgeMaximizing(const ClientReading &reading, TimePoint now);
    void sendMove(const ClientReading &reading, TimePoint now);
    void sendState(bool maximized, TimePoint now, const ClientReading &reading);
    void countRequest(TimePoint now, const ClientReading &reading);

    bool isPositionRight(const ClientReading &reading) const;
    bool isSizeRight(const ClientReading &reading) const;
    bool isAlreadyThere(const ClientReading &reading) const;
    TimePoint calmTime(const ClientReading &reading) const;
    TimePoint calmOutsideArea() const;

    xcb_window_t m_window;
    PlacementTarget m_target;
    const WindowManager &m_windowManager;

    Phase m_phase = Phase::Moving;
    std::optional<Rect> m_area; ///< the work area to be maximised in; absent: not maximised
    PixelRect m_rectangle;      ///< the visible frame wanted while moving
    WindowManager::Aspect m_aspect = WindowManager::Aspect::PositionAndSize;
    int m_requests = 0; ///< sent in this phase
    bool m_hasRepeated = false;
    bool m_hasUnmaximized = false;
    bool m_stateChanged = false;
    std::chrono::milliseconds m_shadowPatience{};
    std::optional<Extents> m_maximizedShadow; ///< absent: it was not un-maximised, or has none

    TimePoint m_sent{};
    std::optional<TimePoint> m_handled;
    std::chrono::milliseconds m_patience{};
    bool m_isDue = false;
    bool m_hasChanged = false;
    FrameGeometry m_lastGeometry;
    TimePoint m_stableSince{}; ///< extents and size; the position may change meanwhile
    TimePoint m_resized{};     ///< when the client's size last changed, or the state was asked for
    TimePoint m_nextLook{};
};

} // namespace Panorel::X11
