#pragma once

#include "PanorelX11/Windows/Placement.h"

#include <map>
#include <vector>

namespace Panorel::X11 {

/// Windows that are in place and may leave it by nobody's wish, for a while after their placing.
///
/// A client may notice late that it was un-maximised: it returns to a size of its own, or, where
/// it decorates itself, makes room for its shadow, which grows back in steps. The shadow carries
/// the visible frame off the place. And a slow window manager that was asked twice answers twice,
/// once to each wording. Whatever else happens to such a window is the user's doing, and ends the
/// watch.
class PlacementWatch {
public:
    using TimePoint = Placement::TimePoint;

    /// Where a window was placed, and how long it may be put back there.
    struct Place {
        PlacementTarget target;
        TimePoint heldUntil;
        std::uint64_t displayChanges; ///< as many as there had been when it was asked for
    };

    /// Watches the window if there is a reason to: it was just read, with its placement done.
    void add(xcb_window_t window, const Place &place, const Placement &placement,
             const ClientReading &reading, TimePoint now);

    void remove(xcb_window_t window) { m_windows.erase(window); }

    /// An event told of a change.
    void noteChange(xcb_window_t window);

    /// Whether there is one to judge.
    bool hasChanged() const;
    /// Those that have changed since they were last judged. What was placed before another change
    /// of the displays is no longer watched.
    std::vector<xcb_window_t> changed(std::uint64_t displayChanges, TimePoint now);

    /// Where to put the window back to, as it was just read, absent for one that has gone; absent
    /// where it is in place or no longer watched. `isHeld`: the user has hold of something.
    std::optional<Place> judge(xcb_window_t window, const std::optional<ClientReading> &reading,
                               bool isHeld, TimePoint now);

private:
    struct Watched {
        Place place;
        FrameGeometry geometry;
        TimePoint echoUntil; ///< till then a repeated request may still be answered
        bool mayResizeItself;
        bool hasChanged = false;
    };

    static bool isNobodysDoing(const Watched &watched, const ClientReading &reading, bool isHeld,
                               TimePoint now);

    std::map<xcb_window_t, Watched> m_windows;
};

} // namespace Panorel::X11
