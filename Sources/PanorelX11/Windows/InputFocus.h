#pragma once

#include "PanorelX11/Windows/EventPump.h"
#include "PanorelX11/Windows/WindowManager.h"

#include <optional>

namespace Panorel::X11 {

/// The keyboard focus: who has it, and giving it away without raising anything.
class InputFocus {
public:
    struct Holder {
        xcb_window_t window;
        xcb_window_t active; ///< as the window manager names it; none where it names nobody
        std::uint8_t revertTo;
    };

    /// All of them outlive it.
    InputFocus(const XConnection &connection, EventPump &pump, const WindowManager &windowManager);

    /// Absent when the server is gone.
    std::optional<Holder> holder() const;

    /// The client that the window manager says has the focus; none where there is no such client.
    xcb_window_t activeWindow() const;

    /// Set by hand: to activate the window would also raise it. Is sent and not waited for.
    void giveBack(const Holder &before) const;

    /// Gives it to a window that is on the screen, by the way that the window takes it. Only where
    /// that fails is the window activated and so raised. Waits some tenths of a second at the most.
    void moveTo(xcb_window_t window);

private:
    enum class Model { Passive, AsksForIt };

    Model modelOf(xcb_window_t window) const;
    void offer(xcb_window_t window);
    xcb_timestamp_t serverTime();

    const XConnection &m_connection;
    EventPump &m_pump;
    const WindowManager &m_windowManager;
    xcb_window_t m_clock = XCB_WINDOW_NONE; ///< a window whose changes tell the server's time
    std::optional<xcb_timestamp_t> m_time;
};

} // namespace Panorel::X11
