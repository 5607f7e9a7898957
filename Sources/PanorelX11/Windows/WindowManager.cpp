#include "PanorelX11/Windows/WindowManager.h"

#include <array>
#include <cstring>

namespace Panorel::X11 {

namespace {

// Values of the extended window manager conventions.
constexpr std::uint32_t sourcePager = 2;
constexpr std::uint32_t flagsShift = 8;
constexpr std::uint32_t sourceShift = 12;
constexpr std::uint32_t stateRemove = 0;
constexpr std::uint32_t stateAdd = 1;
constexpr std::uint32_t iconicState = 3;
constexpr std::uint32_t supportedAtoms = 16 * 1024;

/// Bits for x, y, width and height.
std::uint32_t aspectBits(WindowManager::Aspect aspect)
{
    switch (aspect) {
    case WindowManager::Aspect::Position:
        return 0x3;
    case WindowManager::Aspect::Size:
        return 0xc;
    case WindowManager::Aspect::PositionAndSize:
        break;
    }
    return 0xf;
}

std::uint32_t moveResizeFlags(std::uint32_t gravity, WindowManager::Aspect aspect)
{
    return gravity | aspectBits(aspect) << flagsShift | sourcePager << sourceShift;
}

} // namespace

WindowManager::WindowManager(const XConnection &connection, EventPump &pump)
    : m_connection(connection)
{
    pump.addListener([this](const xcb_generic_event_t &event) {
        if (eventCode(event) != XCB_PROPERTY_NOTIFY)
            return;
        const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (notify.window == m_connection.root()
            && (notify.atom == m_connection.atom("_NET_SUPPORTED")
                || notify.atom == m_connection.atom("_NET_SUPPORTING_WM_CHECK")))
            m_supported.reset();
    });
}

bool WindowManager::isPresent() const
{
    const xcb_atom_t check = m_connection.atom("_NET_SUPPORTING_WM_CHECK");
    const auto named =
        PropertyRequest(m_connection, m_connection.root(), check).collect().value32();
    return named && *named != XCB_WINDOW_NONE
           && PropertyRequest(m_connection, *named, check).collect().value32() == named;
}

bool WindowManager::supports(const char *atom) const
{
    if (!m_supported) {
        const auto atoms = PropertyRequest(m_connection, m_connection.root(),
                                           m_connection.atom("_NET_SUPPORTED"), supportedAtoms)
                               .collect()
                               .values32();
        m_supported.emplace(atoms.begin(), atoms.end());
    }
    return m_supported->contains(m_connection.atom(atom));
}

bool WindowManager::isComposited() const
{
    xcb_connection_t *c = m_connection.get();
    const XOwned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        c, xcb_get_selection_owner(c, m_connection.atom("_NET_WM_CM_S0")), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void WindowManager::place(xcb_window_t window, const PixelRect &client, Aspect aspect,
                          const Extents &decorations, std::uint32_t windowGravity) const
{
    if (!supports("_NET_MOVERESIZE_WINDOW"))
        return configure(window, client, aspect, decorations, windowGravity);
    // Left to the window's own gravity, windows of static gravity would drift by their frame.
    send(window, "_NET_MOVERESIZE_WINDOW",
         {moveResizeFlags(XCB_GRAVITY_NORTH_WEST, aspect),
          std::uint32_t(client.x - decorations.left), std::uint32_t(client.y - decorations.top),
          std::uint32_t(client.width), std::uint32_t(client.height)});
}

void WindowManager::placeStatic(xcb_window_t window, const PixelRect &client, Aspect aspect) const
{
    if (!supports("_NET_MOVERESIZE_WINDOW"))
        return configure(window, client, aspect, {}, XCB_GRAVITY_STATIC);
    send(window, "_NET_MOVERESIZE_WINDOW",
         {moveResizeFlags(XCB_GRAVITY_STATIC, aspect), std::uint32_t(client.x),
          std::uint32_t(client.y), std::uint32_t(client.width), std::uint32_t(client.height)});
}

void WindowManager::setMaximized(xcb_window_t window, bool maximized) const
{
    send(window, "_NET_WM_STATE",
         {maximized ? stateAdd : stateRemove, m_connection.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
          m_connection.atom("_NET_WM_STATE_MAXIMIZED_HORZ"), sourcePager, 0});
}

void WindowManager::minimize(xcb_window_t window) const
{
    send(window, "WM_CHANGE_STATE", {iconicState, 0, 0, 0, 0});
}

void WindowManager::setHidden(xcb_window_t window) const
{
    send(window, "_NET_WM_STATE",
         {stateAdd, m_connection.atom("_NET_WM_STATE_HIDDEN"), 0, sourcePager, 0});
}

void WindowManager::clearHidden(xcb_window_t window) const
{
    send(window, "_NET_WM_STATE",
         {stateRemove, m_connection.atom("_NET_WM_STATE_HIDDEN"), 0, sourcePager, 0});
}

void WindowManager::requestMap(xcb_window_t window) const
{
    xcb_map_request_event_t request{};
    request.response_type = XCB_MAP_REQUEST;
    request.parent = m_connection.root();
    request.window = window;
    // An event on the wire has 32 bytes, whatever its kind.
    std::array<char, 32> event{};
    std::memcpy(event.data(), &request, sizeof request);
    xcb_send_event(m_connection.get(), 0, m_connection.root(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   event.data());
}

void WindowManager::map(xcb_window_t window) const
{
    xcb_map_window(m_connection.get(), window);
}

void WindowManager::stackOnTop(xcb_window_t window) const
{
    send(window, "_NET_RESTACK_WINDOW", {sourcePager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE, 0, 0});
}

void WindowManager::activate(xcb_window_t window) const
{
    send(window, "_NET_ACTIVE_WINDOW", {sourcePager, XCB_CURRENT_TIME, 0, 0, 0});
}

void WindowManager::send(xcb_window_t window, const char *type,
                         const std::array<std::uint32_t, 5> &values) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection.atom(type);
    std::ranges::copy(values, message.data.data32);
    xcb_send_event(m_connection.get(), 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
}

void WindowManager::configure(xcb_window_t window, const PixelRect &client, Aspect aspect,
                              const Extents &decorations, std::uint32_t windowGravity) const
{
    const Point origin = requestedOrigin(client, decorations, windowGravity);
    std::vector<std::uint32_t> values;
    std::uint16_t mask = 0;
    if (aspect != Aspect::Size) {
        mask |= XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y;
        values.push_back(std::uint32_t(int(origin.x)));
        values.push_back(std::uint32_t(int(origin.y)));
    }
    if (aspect != Aspect::Position) {
        mask |= XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
        values.push_back(std::uint32_t(client.width));
        values.push_back(std::uint32_t(client.height));
    }
    xcb_configure_window(m_connection.get(), window, mask, values.data());
}

} // namespace Panorel::X11
