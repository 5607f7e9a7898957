#pragma once

#include "PanorelPorts/WorkspacePort.h"
#include "PanorelX11/Windows/ClientRegistry.h"

#include <functional>
#include <unordered_map>
#include <unordered_set>

namespace Panorel::X11 {

/// Announces applications that get their first window on the task bar. Learns of it from the
/// events alone, and costs nothing while nobody wants to know.
class LaunchWatch {
public:
    using TimePoint = EventPump::TimePoint;
    using Launched = std::function<void(const RunningApplication &)>;

    /// All of them outlive it.
    LaunchWatch(const XConnection &connection, EventPump &pump, ClientRegistry &registry);

    /// What is there now is no launch. Empty: no longer. Is called from announce() alone.
    void setCallback(Launched launched);

    /// Whether announce() has something to look at.
    bool isDue() const { return m_isDue; }

    /// To be called from the event loop, and from nowhere else: what is called back may use every
    /// port.
    void announce();

private:
    void noteEvent(const xcb_generic_event_t &event);
    void excuseWhatIsThere();
    std::vector<RunningApplication> takeLaunches();

    const XConnection &m_connection;
    ClientRegistry &m_registry;
    Launched m_launched;
    bool m_isDue = false;
    bool m_hasManagerChanged = false;

    /// All that were ever listed and still exist. A window on the task bar when last looked names
    /// its application here, any other names none.
    std::unordered_map<xcb_window_t, std::optional<ProcessIdentifier>> m_windows;

    /// A window manager that starts takes one window after the other into its list. Those that
    /// were there before it make no launch.
    std::unordered_set<xcb_window_t> m_excused;
    TimePoint m_excusedUntil{};
};

} // namespace Panorel::X11
