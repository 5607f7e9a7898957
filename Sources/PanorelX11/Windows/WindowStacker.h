#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/WindowManager.h"

#include <vector>

namespace Panorel::X11 {

/// Raises windows and leaves the focus where it is.
class WindowStacker {
public:
    /// All of them outlive it.
    WindowStacker(const XConnection &connection, EventPump &pump, ClientRegistry &registry,
                  const ClientReader &reader, const WindowManager &windowManager);

    /// The last one ends on top. Minimised windows are left out, and so are windows of another
    /// desktop where raising would mean to switch to it. Waits, for some tenths of a second at
    /// the most, until the window manager has done it.
    void raise(const std::vector<xcb_window_t> &backToFront);

private:
    struct Focus {
        xcb_window_t window;
        xcb_window_t active; ///< as the window manager names it
        std::uint8_t revertTo;
    };

    std::vector<xcb_window_t> raisable(const std::vector<xcb_window_t> &backToFront) const;
    bool isStacked(const std::vector<xcb_window_t> &backToFront);
    void raiseByActivating(const std::vector<xcb_window_t> &backToFront);
    std::optional<Focus> focus() const;
    xcb_window_t activeWindow() const;
    template <typename Condition>
    bool waitFor(Condition condition, std::chrono::milliseconds atMost);

    const XConnection &m_connection;
    EventPump &m_pump;
    ClientRegistry &m_registry;
    const ClientReader &m_reader;
    const WindowManager &m_windowManager;
};

} // namespace Panorel::X11
