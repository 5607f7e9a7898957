#include "Desktop/Support/DesktopProbe.h"

#include "Desktop/Support/ChildProcess.h"

#include <QElapsedTimer>

#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace Panorel::Desktop {
namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> using Reply = std::unique_ptr<T, Free>;

constexpr std::uint32_t northWest = 1;
constexpr std::uint32_t allFour = 0xF << 8;
constexpr std::uint32_t pager = 2; // source indication

} // namespace

DesktopProbe::DesktopProbe() : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection.get()))
        qFatal("no X server at %s", qgetenv("DISPLAY").constData());
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

xcb_atom_t DesktopProbe::atom(const char *name) const
{
    const auto cookie = xcb_intern_atom(m_connection.get(), false,
                                        static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray DesktopProbe::bytes(xcb_window_t window, const char *property) const
{
    const auto cookie = xcb_get_property(m_connection.get(), false, window, atom(property),
                                         XCB_ATOM_ANY, 0, 1 << 20);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

std::vector<std::uint32_t> DesktopProbe::values(xcb_window_t window, const char *property) const
{
    const QByteArray raw = bytes(window, property);
    std::vector<std::uint32_t> result(static_cast<std::size_t>(raw.size()) / 4);
    if (!result.empty())
        std::memcpy(result.data(), raw.constData(), result.size() * 4);
    return result;
}

std::vector<xcb_window_t> DesktopProbe::stacking() const
{
    // xfwm4 does not set the first before there is something to stack.
    const std::vector<xcb_window_t> stacked = values(m_root, "_NET_CLIENT_LIST_STACKING");
    return stacked.empty() ? values(m_root, "_NET_CLIENT_LIST") : stacked;
}

QString DesktopProbe::title(xcb_window_t window) const
{
    const QByteArray modern = bytes(window, "_NET_WM_NAME");
    return modern.isEmpty() ? QString::fromLatin1(bytes(window, "WM_NAME"))
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
    std::vector<std::uint32_t> shadow = values(window, "_GTK_FRAME_EXTENTS");
    std::vector<std::uint32_t> decoration = values(window, "_NET_FRAME_EXTENTS");
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
    const std::vector<std::uint32_t> states = values(window, "_NET_WM_STATE");
    return std::ranges::find(states, atom(state)) != states.end();
}

void DesktopProbe::message(xcb_window_t window, const char *type,
                           const std::vector<std::uint32_t> &data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(m_connection.get(), false, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection.get());
}

void DesktopProbe::setState(xcb_window_t window, bool on, const char *first, const char *second)
{
    message(window, "_NET_WM_STATE",
            {on ? 1U : 0U, atom(first), second ? atom(second) : xcb_atom_t{XCB_ATOM_NONE}, pager});
}

void DesktopProbe::setTitle(xcb_window_t window, const QByteArray &title)
{
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_NAME"),
                        atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(title.size()),
                        title.constData());
    xcb_flush(m_connection.get());
}

void DesktopProbe::setShadow(xcb_window_t window, std::uint32_t width)
{
    const std::array sides{width, width, width, width};
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window,
                        atom("_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 32, 4, sides.data());
    xcb_flush(m_connection.get());
}

void DesktopProbe::minimise(xcb_window_t window)
{
    message(window, "WM_CHANGE_STATE", {3});
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
    std::vector<std::uint32_t> shadow = values(window, "_GTK_FRAME_EXTENTS");
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

void DesktopProbe::close(xcb_window_t window)
{
    message(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, pager});
}

void DesktopProbe::sendToDesktop(xcb_window_t window, std::uint32_t desktop)
{
    message(window, "_NET_WM_DESKTOP", {desktop, pager});
}

std::optional<std::uint32_t> DesktopProbe::value(xcb_window_t window, const char *property) const
{
    const std::vector<std::uint32_t> all = values(window, property);
    return all.empty() ? std::nullopt : std::optional(all[0]);
}

std::optional<xcb_window_t> DesktopProbe::activeWindow() const
{
    const auto active = value(m_root, "_NET_ACTIVE_WINDOW");
    return active == XCB_WINDOW_NONE ? std::nullopt : active;
}

std::optional<std::uint32_t> DesktopProbe::desktopOf(xcb_window_t window) const
{
    return value(window, "_NET_WM_DESKTOP");
}

std::optional<std::uint32_t> DesktopProbe::currentDesktop() const
{
    return value(m_root, "_NET_CURRENT_DESKTOP");
}

void DesktopProbe::setDesktopCount(std::uint32_t count)
{
    const std::vector<std::uint32_t> wanted{count};
    require(
        [&] {
            // Again each time: a window manager that is just starting may not listen yet.
            message(m_root, "_NET_NUMBER_OF_DESKTOPS", {count});
            return values(m_root, "_NET_NUMBER_OF_DESKTOPS") == wanted;
        },
        "the number of desktops");
}

xcb_window_t DesktopProbe::managerWindow() const
{
    const std::vector<std::uint32_t> check = values(m_root, "_NET_SUPPORTING_WM_CHECK");
    const bool exists = !check.empty() && values(check[0], "_NET_SUPPORTING_WM_CHECK") == check;
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
