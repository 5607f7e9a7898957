#include "PanorelX11/Windows/Monitors.h"

#include "PanorelX11/Displays/WorkArea.h"

namespace Panorel::X11 {

Monitors::Monitors(XConnection &connection, EventPump &pump)
    : m_connection(connection), m_pump(pump), m_randR(connection)
{
    pump.addListener([this](const xcb_generic_event_t &event) { handle(event); });
    if (m_randR.isAvailable())
        m_randR.selectDisplayChanges();
}

const std::vector<Rect> &Monitors::workAreas()
{
    m_pump.drain();
    if (!m_workAreas) {
        const auto struts = readStruts(m_connection);
        const Size rootSize = readRootSize(m_connection).value_or(Size{});
        std::vector<Rect> areas;
        for (const Monitor &monitor : m_randR.monitors())
            areas.push_back(workArea(monitor.frame, struts, rootSize));
        m_workAreas = std::move(areas);
    }
    return *m_workAreas;
}

void Monitors::handle(const xcb_generic_event_t &event)
{
    if (m_randR.isAvailable() && RandR::isDisplayChange(event, m_randR.firstEvent())) {
        m_changeCount += 1;
        m_lastChange = std::chrono::steady_clock::now();
        m_workAreas.reset();
    } else if (eventCode(event) == XCB_PROPERTY_NOTIFY) {
        const auto atom = reinterpret_cast<const xcb_property_notify_event_t &>(event).atom;
        if (atom == m_connection.atom("_NET_WM_STRUT")
            || atom == m_connection.atom("_NET_WM_STRUT_PARTIAL")
            || atom == m_connection.atom("_NET_CLIENT_LIST"))
            m_workAreas.reset();
    }
}

} // namespace Panorel::X11
