#include "PanorelX11/Windows/Monitors.h"

#include "PanorelX11/Displays/WorkArea.h"

#include <xcb/randr.h>

namespace Panorel::X11 {

Monitors::Monitors(const XConnection &connection, EventPump &pump)
    : m_connection(connection), m_pump(pump)
{
    pump.addListener([this](const xcb_generic_event_t &event) { handle(event); });
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_randr_id);
    if (!extension || !extension->present)
        return;
    m_firstRandREvent = extension->first_event;
    // Without this the server takes us for a client of an old version.
    const XOwned<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        connection.get(), xcb_randr_query_version(connection.get(), 1, 5), nullptr));
    xcb_randr_select_input(connection.get(), connection.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE
                               | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
}

const std::vector<Rect> &Monitors::workAreas()
{
    m_pump.drain();
    if (!m_workAreas) {
        const auto struts = readStruts(m_connection);
        const Size rootSize = readRootSize(m_connection).value_or(Size{});
        std::vector<Rect> areas;
        for (const Rect &frame : readFrames())
            areas.push_back(workArea(frame, struts, rootSize));
        m_workAreas = std::move(areas);
    }
    return *m_workAreas;
}

void Monitors::handle(const xcb_generic_event_t &event)
{
    const auto code = eventCode(event);
    if (m_firstRandREvent
        && (code == m_firstRandREvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY
            || code == m_firstRandREvent + XCB_RANDR_NOTIFY)) {
        m_changeCount += 1;
        m_lastChange = std::chrono::steady_clock::now();
        m_workAreas.reset();
    } else if (code == XCB_PROPERTY_NOTIFY) {
        const auto atom = reinterpret_cast<const xcb_property_notify_event_t &>(event).atom;
        if (atom == m_connection.atom("_NET_WM_STRUT")
            || atom == m_connection.atom("_NET_WM_STRUT_PARTIAL")
            || atom == m_connection.atom("_NET_CLIENT_LIST"))
            m_workAreas.reset();
    }
}

std::vector<Rect> Monitors::readFrames() const
{
    if (!m_firstRandREvent)
        return {};
    const XOwned<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        m_connection.get(), xcb_randr_get_monitors(m_connection.get(), m_connection.root(), 1),
        nullptr));
    if (!reply)
        return {};
    std::vector<Rect> frames;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
         xcb_randr_monitor_info_next(&it))
        frames.push_back({double(it.data->x), double(it.data->y), double(it.data->width),
                          double(it.data->height)});
    return frames;
}

} // namespace Panorel::X11
