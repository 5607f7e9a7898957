#include "Desktop/Support/DesktopProbe.h"

#include "Desktop/Support/ChildProcess.h"

#include <QElapsedTimer>

#include <xcb/xtest.h>

#include <algorithm>
#include <array>

namespace Panorel::Desktop {
namespace {

template <typename T> using Reply = X11::XOwned<T>;

constexpr std::uint32_t northWest = 1;
constexpr std::uint32_t allFour = 0xF << 8;

} // namespace

X11::PropertyRequest::Value DesktopProbe::property(xcb_window_t window, const char *name) const
{
    return X11::PropertyRequest(m_connection, window, m_connection.atom(name), 1 << 20).collect();
}

std::vector<xcb_window_t> DesktopProbe::stacking() const
{
    // xfwm4 does not set the first before there is something to stack.
    const std::vector<xcb_window_t> stacked =
        property(m_root, "_NET_CLIENT_LIST_STACKING").values32();
    return stacked.empty() ? property(m_root, "_NET_CLIENT_LIST").values32() : stacked;
}

QString DesktopProbe::title(xcb_window_t window) const
{
    const QByteArray modern = property(window, "_NET_WM_NAME").bytes();
    return modern.isEmpty() ? QString::fromLatin1(property(window, "WM_NAME").bytes())
                            : QString::fromUtf8(modern);
}

std::optional<xcb_window_t> DesktopProbe::find(const QString &wanted) const
{
    for (const xcb_window_t window : stacking()) {
        if (title(window).trimmed() == wanted)
            return window;
    }
    return {};
}

std::optional<Rect> DesktopProbe::frame(xcb_window_t window) const
{
    const auto geometry = xcb_get_geometry(m_connection.get(), window);
    const auto place = xcb_translate_coordinates(m_connection.get(), window, m_root, 0, 0);
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(m_connection.get(), geometry, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(m_connection.get(), place, nullptr));
    if (!size || !origin)
        return std::nullopt;

    // Both properties: left, right, top, bottom. Shadows are part of the client, decorations not.
    std::vector<std::uint32_t> shadow = property(window, "_GTK_FRAME_EXTENTS").values32();
    std::vector<std::uint32_t> decoration = property(window, "_NET_FRAME_EXTENTS").values32();
    shadow.resize(4);
    decoration.resize(4);
    const bool shadowed = std::ranges::any_of(shadow, [](std::uint32_t side) { return side != 0; });
    double grow[4];
    for (std::size_t i = 0; i < 4; ++i)
        grow[i] = shadowed ? -double(shadow[i]) : double(decoration[i]);
    return Rect{origin->dst_x - grow[0], origin->dst_y - grow[2], size->width + grow[0] + grow[1],
                size->height + grow[2] + grow[3]};
}

Rect DesktopProbe::restingFrame(xcb_window_t window) const
{
    return restingFrames({window}).front();
}

std::vector<Rect> DesktopProbe::restingFrames(const std::vector<xcb_window_t> &windows) const
{
    // GTK animates the shadow of its windows: at rest means unchanged for longer than one step.
    std::vector<Rect> last;
    QElapsedTimer unchanged;
    require(
        [&] {
            std::vector<Rect> now;
            for (const xcb_window_t window : windows)
                now.push_back(frame(window).value_or(Rect{}));
            if (now != last)
                unchanged.start();
            last = now;
            return std::ranges::find(last, Rect{}) == last.end() && unchanged.elapsed() > 120;
        },
        "windows at rest");
    return last;
}

bool DesktopProbe::hasState(xcb_window_t window, const char *state) const
{
    const std::vector<std::uint32_t> states = property(window, "_NET_WM_STATE").values32();
    return std::ranges::find(states, m_connection.atom(state)) != states.end();
}

void DesktopProbe::message(xcb_window_t window, const char *type,
                           const std::vector<std::uint32_t> &data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_connection.atom(type);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(m_connection.get(), false, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection.get());
}

void DesktopProbe::setState(xcb_window_t window, bool on, const char *first, const char *second)
{
    message(window, "_NET_WM_STATE",
            {on ? 1U : 0U, m_connection.atom(first),
             second ? m_connection.atom(second) : xcb_atom_t{XCB_ATOM_NONE}, pager});
}

void DesktopProbe::setTitle(xcb_window_t window, const QByteArray &title)
{
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window,
                        m_connection.atom("_NET_WM_NAME"), m_connection.atom("UTF8_STRING"), 8,
                        static_cast<std::uint32_t>(title.size()), title.constData());
    xcb_flush(m_connection.get());
}

void DesktopProbe::setShadow(xcb_window_t window, std::uint32_t width)
{
    const std::array sides{width, width, width, width};
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window,
                        m_connection.atom("_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 32, 4,
                        sides.data());
    xcb_flush(m_connection.get());
}

void DesktopProbe::move(xcb_window_t window, const Rect &target)
{
    const std::optional<Rect> now = frame(window);
    const auto geometry = xcb_get_geometry(m_connection.get(), window);
    const Reply<xcb_get_geometry_reply_t> client(
        xcb_get_geometry_reply(m_connection.get(), geometry, nullptr));
    if (!now || !client)
        return;
    // The frame and the client differ by the same margins before and after. North-west gravity
    // places the outer corner, which for client-decorated windows is that of the shadow.
    std::vector<std::uint32_t> shadow = property(window, "_GTK_FRAME_EXTENTS").values32();
    shadow.resize(4);
    const auto coordinate = [](double value) {
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(value));
    };
    message(window, "_NET_MOVERESIZE_WINDOW",
            {northWest | allFour | pager << 12, coordinate(target.x - shadow[0]),
             coordinate(target.y - shadow[2]),
             coordinate(target.width - now->width + client->width),
             coordinate(target.height - now->height + client->height)});
}

void DesktopProbe::activate(xcb_window_t window)
{
    message(window, "_NET_ACTIVE_WINDOW", {pager, XCB_CURRENT_TIME, XCB_WINDOW_NONE});
    // Not every window manager raises what it activates.
    message(window, "_NET_RESTACK_WINDOW", {pager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE});
}

std::optional<xcb_window_t> DesktopProbe::activeWindow() const
{
    const auto active = property(m_root, "_NET_ACTIVE_WINDOW").value32();
    return active == XCB_WINDOW_NONE ? std::nullopt : active;
}

void DesktopProbe::setDesktopCount(std::uint32_t count)
{
    require(
        [&] {
            // Again each time: a window manager that is just starting may not listen yet.
            message(m_root, "_NET_NUMBER_OF_DESKTOPS", {count});
            return property(m_root, "_NET_NUMBER_OF_DESKTOPS").value32() == count;
        },
        "the number of desktops");
}

xcb_window_t DesktopProbe::managerWindow() const
{
    const std::vector<std::uint32_t> check =
        property(m_root, "_NET_SUPPORTING_WM_CHECK").values32();
    const bool exists =
        !check.empty() && property(check[0], "_NET_SUPPORTING_WM_CHECK").values32() == check;
    return exists ? check[0] : xcb_window_t(XCB_WINDOW_NONE);
}

void DesktopProbe::awaitManager()
{
    require([&] { return managerWindow() != XCB_WINDOW_NONE; }, "a window manager");
    // It announces itself before it manages windows; once it answers, it does.
    setDesktopCount(3);
    setDesktopCount(1);
}

void DesktopProbe::click(int x, int y)
{
    xcb_connection_t *connection = m_connection.get();
    xcb_test_fake_input(connection, XCB_MOTION_NOTIFY, 0, 0, m_root, std::int16_t(x),
                        std::int16_t(y), 0);
    xcb_test_fake_input(connection, XCB_BUTTON_PRESS, 1, 0, XCB_NONE, 0, 0, 0);
    xcb_test_fake_input(connection, XCB_BUTTON_RELEASE, 1, 0, XCB_NONE, 0, 0, 0);
    xcb_flush(connection);
}

void DesktopProbe::sync() const
{
    const Reply<xcb_get_input_focus_reply_t> answered(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

} // namespace Panorel::Desktop
