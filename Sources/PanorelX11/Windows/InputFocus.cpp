#include "PanorelX11/Windows/InputFocus.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 150ms;
constexpr auto serverTimePatience = 50ms;
/// Of WM_HINTS: the flag that the second value counts.
constexpr std::uint32_t inputHint = 1;

} // namespace

InputFocus::InputFocus(const XConnection &connection, EventPump &pump,
                       const WindowManager &windowManager)
    : m_connection(connection), m_pump(pump), m_windowManager(windowManager)
{
    pump.addListener([this](const xcb_generic_event_t &event) {
        if (m_clock == XCB_WINDOW_NONE || eventCode(event) != XCB_PROPERTY_NOTIFY)
            return;
        const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (notify.window == m_clock)
            m_time = notify.time;
    });
}

std::optional<InputFocus::Holder> InputFocus::holder() const
{
    const XOwned<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    if (!reply)
        return std::nullopt;
    return Holder{reply->focus, activeWindow(), reply->revert_to};
}

xcb_window_t InputFocus::activeWindow() const
{
    return PropertyRequest(m_connection, m_connection.root(),
                           m_connection.atom("_NET_ACTIVE_WINDOW"))
        .collect()
        .value32()
        .value_or(XCB_WINDOW_NONE);
}

void InputFocus::giveBack(const Holder &before) const
{
    xcb_set_input_focus(m_connection.get(), before.revertTo, before.window, XCB_CURRENT_TIME);
}

void InputFocus::moveTo(xcb_window_t window)
{
    const auto hasIt = [&] { return activeWindow() == window; };
    if (hasIt())
        return;
    if (modelOf(window) == Model::AsksForIt)
        offer(window);
    else
        giveBack({window, window, XCB_INPUT_FOCUS_PARENT});
    if (m_pump.waitFor(hasIt, patience))
        return;
    m_windowManager.activate(window);
    m_pump.waitFor(hasIt, patience);
}

InputFocus::Model InputFocus::modelOf(xcb_window_t window) const
{
    PropertyRequest hintsRequest(m_connection, window, m_connection.atom("WM_HINTS"));
    PropertyRequest protocolsRequest(m_connection, window, m_connection.atom("WM_PROTOCOLS"));
    const auto hints = hintsRequest.collect().values32();
    const auto protocols = protocolsRequest.collect().values32();
    const bool refusesInput = hints.size() >= 2 && (hints[0] & inputHint) && hints[1] == 0;
    const bool takesFocus =
        std::ranges::find(protocols, m_connection.atom("WM_TAKE_FOCUS")) != protocols.end();
    return refusesInput && takesFocus ? Model::AsksForIt : Model::Passive;
}

void InputFocus::offer(xcb_window_t window)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection.atom("WM_PROTOCOLS");
    message.data.data32[0] = m_connection.atom("WM_TAKE_FOCUS");
    message.data.data32[1] = serverTime();
    xcb_send_event(m_connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&message));
}

/// The client sets the focus with this time, and the server ignores what is older than the last
/// change of it.
xcb_timestamp_t InputFocus::serverTime()
{
    if (m_clock == XCB_WINDOW_NONE) {
        m_clock = xcb_generate_id(m_connection.get());
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection.get(), 0, m_clock, m_connection.root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &events);
    }
    m_time.reset();
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_clock, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    m_pump.waitFor([&] { return m_time.has_value(); }, serverTimePatience);
    return m_time.value_or(XCB_CURRENT_TIME);
}

} // namespace Panorel::X11
