#pragma once

#include "PanorelX11/Windows/EventPump.h"
#include "PanorelX11/Windows/FrameGeometry.h"

#include <optional>
#include <set>

namespace Panorel::X11 {

/// What is asked of the window manager, and whether there is one. A request is sent and not
/// waited for; whether it was granted shows in the window. Requests for a window that has gone
/// are lost without a trace.
class WindowManager {
public:
    /// Which of the four values of a rectangle a request is about.
    enum class Aspect { Position, Size, PositionAndSize };

    /// The connection and the pump outlive it.
    WindowManager(const XConnection &connection, EventPump &pump);

    /// Whether a window manager of the extended conventions is alive: the note of one that has
    /// died stays on the root window.
    bool isPresent() const;

    /// Whether it lists the atom among what it supports.
    bool supports(const char *atom) const;

    /// Whether the screen is composited: only then do windows have shadows.
    bool isComposited() const;

    /// Asks for a client rectangle, meaning the frame around it with these decorations: the way
    /// that serves every window.
    void place(xcb_window_t window, const PixelRect &client, Aspect aspect,
               const Extents &decorations, std::uint32_t windowGravity) const;

    /// The same, said by the client rectangle itself, whatever the decorations: for a window
    /// manager that miscounts them.
    void placeStatic(xcb_window_t window, const PixelRect &client, Aspect aspect) const;

    void setMaximized(xcb_window_t window, bool maximized) const;

    void minimize(xcb_window_t window) const;

    /// The same for a window of another desktop, which some window managers take for minimised
    /// already when they are asked in the first way.
    void setHidden(xcb_window_t window) const;

    /// Three ways to take a window out of its minimised state, none of which every window manager
    /// knows. The last two may switch to the window's desktop.
    void clearHidden(xcb_window_t window) const;
    void requestMap(xcb_window_t window) const;
    void map(xcb_window_t window) const;

    /// To the top of the stacking, the focus left alone. Only where supports() says so of
    /// "_NET_RESTACK_WINDOW".
    void stackOnTop(xcb_window_t window) const;

    /// To the top with the focus.
    void activate(xcb_window_t window) const;

private:
    void send(xcb_window_t window, const char *type,
              const std::array<std::uint32_t, 5> &values) const;
    void configure(xcb_window_t window, const PixelRect &client, Aspect aspect,
                   const Extents &decorations, std::uint32_t windowGravity) const;

    const XConnection &m_connection;
    mutable std::optional<std::set<xcb_atom_t>> m_supported; ///< absent: to be read
};

} // namespace Panorel::X11
