#pragma once

#include "PanorelX11/Connection/XConnection.h"
#include "PanorelX11/Displays/ConnectedOutput.h"
#include "PanorelX11/Displays/ScreenList.h"

#include <xcb/randr.h>

#include <set>
#include <vector>

namespace Panorel::X11 {

/// The server's answers about displays, as values.
class RandR {
public:
    /// `connection` outlives this.
    explicit RandR(XConnection &connection);

    /// Whether the server tells monitors (RandR 1.5).
    bool isAvailable() const { return m_available; }

    /// One for each part of the root window that is shown on a connected display, in the server's
    /// order; visible frames are the whole frames. Without RandR the root window is the one
    /// monitor, on an output with the number 0.
    std::vector<Monitor> monitors();

    /// Absent for an output that is not there, not connected or not lit. The first time a lit
    /// output is said not to be connected, the server is made to look, which can take a while.
    std::optional<ConnectedOutput> output(DisplayNumber number);

    /// Asks for the events that isDisplayChange() recognises.
    void selectDisplayChanges();

    /// Told from what any connection to the same server receives.
    static bool isDisplayChange(const xcb_generic_event_t &event, std::uint8_t firstEvent);

    std::uint8_t firstEvent() const { return m_firstEvent; }

private:
    enum class State { Off, LitUnconnected, Connected };

    std::optional<Monitor> monitor(const xcb_randr_monitor_info_t &information);
    State readOutput(DisplayNumber number, ConnectedOutput &output);
    void probe();

    XConnection &m_connection;
    bool m_available = false;
    std::uint8_t m_firstEvent = 0;
    std::set<DisplayNumber> m_knownUnconnected; ///< lit, and the server has looked
};

} // namespace Panorel::X11
