#pragma once

#include "PanorelCore/Geometry.h"
#include "PanorelX11/Displays/RandR.h"
#include "PanorelX11/Windows/EventPump.h"

#include <optional>
#include <vector>

namespace Panorel::X11 {

/// The monitors as placing needs them: what their panels leave free, and when they last changed.
class Monitors {
public:
    /// The connection and the pump outlive it.
    Monitors(XConnection &connection, EventPump &pump);

    /// In root coordinates; read again only after something about them may have changed.
    const std::vector<Rect> &workAreas();

    /// Rises with every event of a screen, CRTC or output change.
    std::uint64_t changeCount() const { return m_changeCount; }
    /// Absent: none since the program started.
    std::optional<EventPump::TimePoint> lastChange() const { return m_lastChange; }

private:
    void handle(const xcb_generic_event_t &event);

    const XConnection &m_connection;
    EventPump &m_pump;
    RandR m_randR;
    std::optional<std::vector<Rect>> m_workAreas;
    std::uint64_t m_changeCount = 0;
    std::optional<EventPump::TimePoint> m_lastChange;
};

} // namespace Panorel::X11
