#pragma once

#include "PanorelCore/Geometry.h"
#include "PanorelX11/Connection/XConnection.h"

#include <QString>

#include <xcb/xcb.h>

#include <memory>
#include <optional>
#include <vector>

namespace Panorel::Desktop {

struct DisconnectServer {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};
using ServerConnection = std::unique_ptr<xcb_connection_t, DisconnectServer>;

/// Looks at the desktop, and handles windows as a user or another program would, on a connection
/// of its own, to the server that DISPLAY names. What a window's frame is, it reckons on its own:
/// what the ports say is compared with what is seen here.
class DesktopProbe {
public:
    /// The managed windows, bottom to top.
    std::vector<xcb_window_t> stacking() const;
    /// Blanks around the title don't count.
    std::optional<xcb_window_t> find(const QString &title) const;
    QString title(xcb_window_t window) const;

    /// The visible frame in root coordinates: decorations in, shadows out. Absent: gone.
    std::optional<Rect> frame(xcb_window_t window) const;

    /// The frame once it and its extents have come to rest. Fatal where they don't.
    Rect restingFrame(xcb_window_t window) const;
    std::vector<Rect> restingFrames(const std::vector<xcb_window_t> &windows) const;

    bool hasState(xcb_window_t window, const char *state) const;
    void setState(xcb_window_t window, bool on, const char *first, const char *second = nullptr);
    void minimise(xcb_window_t window) { message(window, "WM_CHANGE_STATE", {3}); }

    void setTitle(xcb_window_t window, const QByteArray &title);
    /// The same on every side, as a client does that decorates itself.
    void setShadow(xcb_window_t window, std::uint32_t width);

    /// Asks the window manager, without waiting.
    void move(xcb_window_t window, const Rect &frame);
    void activate(xcb_window_t window);
    /// As a click on the close button would.
    void close(xcb_window_t window) { message(window, "_NET_CLOSE_WINDOW", {0, pager}); }
    void sendToDesktop(xcb_window_t window, std::uint32_t desktop)
    {
        message(window, "_NET_WM_DESKTOP", {desktop, pager});
    }

    /// Moves the pointer there, in root coordinates, and presses and releases its first button.
    void click(int x, int y);

    std::optional<xcb_window_t> activeWindow() const;
    std::optional<std::uint32_t> desktopOf(xcb_window_t window) const
    {
        return property(window, "_NET_WM_DESKTOP").value32();
    }
    std::optional<std::uint32_t> currentDesktop() const
    {
        return property(m_root, "_NET_CURRENT_DESKTOP").value32();
    }
    void setDesktopCount(std::uint32_t count);

    /// The window by which a window manager says that it is here; none while none is.
    xcb_window_t managerWindow() const;
    /// Until one is here that answers.
    void awaitManager();

    /// Every request so far has been carried out by the server.
    void sync() const;

private:
    static constexpr std::uint32_t pager = 2; ///< who asks

    X11::PropertyRequest::Value property(xcb_window_t window, const char *name) const;
    void message(xcb_window_t window, const char *type, const std::vector<std::uint32_t> &data);

    X11::XConnection m_connection;
    xcb_window_t m_root = m_connection.root();
};

} // namespace Panorel::Desktop
