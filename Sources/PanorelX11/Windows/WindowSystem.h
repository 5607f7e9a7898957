#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/Monitors.h"
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
/// loop runs, placing that was sent and not waited for goes on from it.
class WindowSystem {
public:
    /// Throws std::runtime_error, its text fit for the user, where there is no X server.
    WindowSystem();
    WindowSystem(const WindowSystem &) = delete;
    WindowSystem &operator=(const WindowSystem &) = delete;

    X11Accessibility &accessibility() { return m_accessibility; }
    X11WindowList &windowList() { return m_windowList; }
    X11Workspace &workspace() { return m_workspace; }

private:
    void processEvents();
    void armTimer();

    XConnection m_connection;
    EventPump m_pump{m_connection};
    Monitors m_monitors{m_connection, m_pump};
    WindowManager m_windowManager{m_connection, m_pump};
    ClientRegistry m_registry{m_connection, m_pump};
    ClientReader m_reader{m_connection};
    WindowPlacer m_placer{m_connection, m_pump, m_reader, m_windowManager, m_monitors};
    WindowStacker m_stacker{m_connection, m_pump, m_registry, m_reader, m_windowManager};
    X11Accessibility m_accessibility{m_registry, m_reader, m_windowManager, m_placer, m_stacker};
    X11WindowList m_windowList{m_registry, m_reader};
    X11Workspace m_workspace{m_registry};
    QSocketNotifier m_notifier;
    QTimer m_timer;
};

} // namespace Panorel::X11
