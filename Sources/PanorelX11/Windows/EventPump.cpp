#include "PanorelX11/Windows/EventPump.h"

#include <poll.h>

namespace Panorel::X11 {

EventPump::EventPump(const XConnection &connection) : m_connection(connection)
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &events);
}

void EventPump::addListener(std::function<void(const xcb_generic_event_t &)> listener)
{
    m_listeners.push_back(std::move(listener));
}

void EventPump::drain()
{
    while (deliver(XOwned<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get()))))
        continue;
}

void EventPump::drainQueued()
{
    while (deliver(XOwned<xcb_generic_event_t>(xcb_poll_for_queued_event(m_connection.get()))))
        continue;
}

void EventPump::waitUntil(TimePoint time)
{
    m_connection.flush();
    // What arrived while a reply was waited for is no longer in the socket.
    if (deliver(XOwned<xcb_generic_event_t>(xcb_poll_for_queued_event(m_connection.get())))) {
        drain();
        return;
    }
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(time - std::chrono::steady_clock::now());
    if (left.count() > 0 && m_connection.alive()) {
        pollfd socket{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
        poll(&socket, 1, int(left.count()));
    }
    drain();
}

bool EventPump::deliver(XOwned<xcb_generic_event_t> event)
{
    if (!event)
        return false;
    if (event->response_type != 0) {
        for (const auto &listener : m_listeners)
            listener(*event);
    }
    return true;
}

} // namespace Panorel::X11
