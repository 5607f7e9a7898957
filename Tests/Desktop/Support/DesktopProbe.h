#pragma once

#include "PanorelCore/Geometry.h"

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
/// of its own and with code of its own: what the ports say is compared with what is seen here.
class DesktopProbe {
public:
    /// Of the server that DISPLAY names; fatal where there is none.
    DesktopProbe();

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
    void minimise(xcb_window_t window);

    void setTitle(xcb_window_t window, const QByteArray &title);
    /// The same on every side, as a client does that decorates itself.
    void setShadow(xcb_window_t window, std::uint32_t width);

    /// Asks the window manager, without waiting.
    void move(xcb_window_t window, const Rect &frame);
    void activate(xcb_window_t window);
    /// As a click on the close button would.
    void close(xcb_window_t window);
    void sendToDesktop(xcb_window_t window, std::uint32_t desktop);

    /// Moves the pointer there, in root coordinates, and presses and releases its first button.
    void click(int x, int y);

    std::optional<xcb_window_t> activeWindow() const;
    std::optional<std::uint32_t> desktopOf(xcb_window_t window) const;
    std::optional<std::uint32_t> currentDesktop() const;
    void setDesktopCount(std::uint32_t count);

    /// The window by which a window manager says that it is here; none while none is.
    xcb_window_t managerWindow() const;
    /// Until one is here that answers.
    void awaitManager();

    /// Every request so far has been carried out by the server.
    void sync() const;

private:
    xcb_atom_t atom(const char *name) const;
    std::optional<std::uint32_t> value(xcb_window_t window, const char *property) const;
    std::vector<std::uint32_t> values(xcb_window_t window, const char *property) const;
    QByteArray bytes(xcb_window_t window, const char *property) const;
    void message(xcb_window_t window, const char *type, const std::vector<std::uint32_t> &data);

    ServerConnection m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace Panorel::Desktop
