#include "PanorelX11/Windows/ManagerFence.h"

namespace Panorel::X11 {

namespace {

/// The window's place is the fence's number, so that it changes with each; it comes round again
/// after more of them than can be under way.
constexpr ManagerFence::Number places = 1000;

int placeOf(ManagerFence::Number fence)
{
    return -100 - int(fence % places);
}

} // namespace

ManagerFence::ManagerFence(const XConnection &connection, EventPump &pump)
    : m_connection(connection), m_window(xcb_generate_id(connection.get()))
{
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, m_window, connection.root(),
                      std::int16_t(placeOf(m_sent)), -100, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    pump.addListener([this](const xcb_generic_event_t &event) {
        if (eventCode(event) != XCB_CONFIGURE_NOTIFY)
            return;
        const auto &notify = reinterpret_cast<const xcb_configure_notify_event_t &>(event);
        if (notify.window != m_window)
            return;
        Number fence = m_sent;
        while (fence > m_passed && placeOf(fence) != notify.x)
            fence -= 1;
        m_passed = fence;
    });
}

ManagerFence::~ManagerFence()
{
    xcb_destroy_window(m_connection.get(), m_window);
}

ManagerFence::Number ManagerFence::add()
{
    m_isAdded = true;
    return m_sent + 1;
}

void ManagerFence::send()
{
    if (!m_isAdded)
        return;
    m_isAdded = false;
    m_sent += 1;
    const auto place = std::uint32_t(placeOf(m_sent));
    xcb_configure_window(m_connection.get(), m_window, XCB_CONFIG_WINDOW_X, &place);
}

} // namespace Panorel::X11
