#pragma once

#include "PanorelX11/Connection/XConnection.h"

#include <chrono>
#include <functional>
#include <vector>

namespace Panorel::X11 {

/// Hands out the events of the connection that windows are read and placed on. Runs no event
/// loop: who waits here waits for the X server alone.
class EventPump {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Selects the root window's property changes: its properties are how a window manager speaks.
    /// The connection outlives the pump.
    explicit EventPump(const XConnection &connection);

    /// Called for every event, errors left out. Listeners live as long as the pump.
    void addListener(std::function<void(const xcb_generic_event_t &)> listener);

    /// Hands out what has arrived, without waiting.
    void drain();

    /// Hands out only what was taken in while a reply was waited for. The socket says nothing of
    /// these any more, so before a wait for the socket they have to be asked for.
    void drainQueued();

    /// Sends what is queued, waits until an event arrives or the time is over, then drains.
    /// Returns at once when the server is gone.
    void waitUntil(TimePoint time);

    /// Whether the condition came true in time. It is looked at again after every event.
    template <typename Condition>
    bool waitFor(Condition condition, std::chrono::milliseconds atMost)
    {
        const auto end = std::chrono::steady_clock::now() + atMost;
        while (!condition()) {
            if (std::chrono::steady_clock::now() >= end || !m_connection.alive())
                return false;
            waitUntil(end);
        }
        return true;
    }

private:
    bool deliver(XOwned<xcb_generic_event_t> event);

    const XConnection &m_connection;
    std::vector<std::function<void(const xcb_generic_event_t &)>> m_listeners;
};

/// The event's code, without the mark of one that another client sent.
inline std::uint8_t eventCode(const xcb_generic_event_t &event)
{
    return event.response_type & 0x7f;
}

} // namespace Panorel::X11
