#pragma once

#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/InputFocus.h"
#include "PanorelX11/Windows/ManagerFence.h"
#include "PanorelX11/Windows/RecentReadings.h"
#include "PanorelX11/Windows/WindowManager.h"

#include <vector>

namespace Panorel::X11 {

/// Raises windows and leaves the focus where it is.
class WindowStacker {
public:
    /// All of them outlive it.
    WindowStacker(EventPump &pump, ClientRegistry &registry, RecentReadings &readings,
                  const WindowManager &windowManager, ManagerFence &fence, const InputFocus &focus);

    /// The last one ends on top. Minimised windows are left out, and so are windows of another
    /// desktop where raising would mean to switch to it. Waits until the window manager has done
    /// it or refused it, 6 s at the most.
    void raise(const std::vector<xcb_window_t> &backToFront);

private:
    std::vector<xcb_window_t> raisable(const std::vector<xcb_window_t> &backToFront);
    std::vector<xcb_window_t> ordinaryFrontToBack();
    bool isStacked(const std::vector<xcb_window_t> &ordinary,
                   const std::vector<xcb_window_t> &backToFront);
    void awaitStacking(const std::vector<xcb_window_t> &backToFront);
    /// A window that is shown full-screen is not restored and never raised for itself, yet it must
    /// not sink behind what it covers.
    std::vector<xcb_window_t> withFullScreenWindows(const std::vector<xcb_window_t> &backToFront);
    void raiseByActivating(const std::vector<xcb_window_t> &backToFront);

    EventPump &m_pump;
    ClientRegistry &m_registry;
    RecentReadings &m_readings;
    const WindowManager &m_windowManager;
    ManagerFence &m_fence;
    const InputFocus &m_focus;
};

} // namespace Panorel::X11
