#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/HiddenWindows.h"
#include "PanorelX11/Windows/InputFocus.h"
#include "PanorelX11/Windows/LaunchWatch.h"
#include "PanorelX11/Windows/ManagerFence.h"
#include "PanorelX11/Windows/Monitors.h"
#include "PanorelX11/Windows/RecentReadings.h"
#include "PanorelX11/Windows/WindowManager.h"
#include "PanorelX11/Windows/WindowPlacer.h"
#include "PanorelX11/Windows/WindowStacker.h"
#include "PanorelX11/Windows/X11Accessibility.h"
#include "PanorelX11/Windows/X11WindowList.h"
#include "PanorelX11/Windows/X11Workspace.h"

#include <QSocketNotifier>
#include <QTimer>

namespace Panorel::X11 {

/// The three ports that are about windows, on a connection of their own. While the main event
/// loop runs, what was sent and not waited for goes on from it, and launches are announced.
class WindowSystem {
public:
    /// Throws std::runtime_error, its text fit for the user, where there is no X server. After the
    /// application object, whose event dispatcher it listens to.
    WindowSystem();
    WindowSystem(const WindowSystem &) = delete;
    WindowSystem &operator=(const WindowSystem &) = delete;

    X11Accessibility &accessibility() { return m_accessibility; }
    X11WindowList &windowList() { return m_windowList; }
    X11Workspace &workspace() { return m_workspace; }

private:
    void processEvents();
    void prepareToWait();

    XConnection m_connection;
    EventPump m_pump{m_connection};
    Monitors m_monitors{m_connection, m_pump};
    WindowManager m_windowManager{m_connection, m_pump};
    ClientRegistry m_registry{m_connection, m_pump};
    ClientReader m_reader{m_connection};
    RecentReadings m_readings{m_connection, m_pump, m_reader};
    ManagerFence m_fence{m_connection, m_pump};
    WindowPlacer m_placer{m_connection,    m_pump,  m_reader,  m_readings,
                          m_windowManager, m_fence, m_monitors};
    InputFocus m_focus{m_connection, m_pump, m_windowManager};
    WindowStacker m_stacker{m_pump, m_registry, m_readings, m_windowManager, m_fence, m_focus};
    HiddenWindows m_hidden{m_connection, m_pump, m_registry, m_reader, m_windowManager, m_focus};
    LaunchWatch m_launches{m_connection, m_pump, m_registry};
    X11Accessibility m_accessibility{m_registry, m_reader,  m_readings, m_windowManager,
                                     m_placer,   m_stacker, m_focus,    m_hidden};
    X11WindowList m_windowList{m_registry, m_readings, m_hidden};
    X11Workspace m_workspace{m_registry, m_hidden, m_launches};
    QSocketNotifier m_notifier;
    QTimer m_timer;
    std::optional<EventPump::TimePoint> m_armedFor; ///< absent: not armed
};

} // namespace Panorel::X11
