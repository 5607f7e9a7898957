#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/EventPump.h"

#include <unordered_map>

namespace Panorel::X11 {

/// Windows as they were last read. A reading is forgotten with the first event that tells of its
/// window, so what a pass over the desk asks for twice is read once, and what follows from it
/// needs no round trip that would have to queue behind the window manager's work.
class RecentReadings {
public:
    struct Described {
        ClientReading reading;
        std::optional<QString> title; ///< absent where it has none
    };

    /// All of them outlive it. The events of the windows that are read have to be selected.
    RecentReadings(const XConnection &connection, EventPump &pump, const ClientReader &reader);

    /// One for each window, in their order; absent for a window that has gone. What was read
    /// within the last tenth of a second is taken from there, the rest read together. After the
    /// events were handed out: a change before them would not be known.
    std::vector<std::optional<Described>> describe(const std::vector<xcb_window_t> &windows);

    /// The window's last reading, however old, which is forgotten; absent where there is none or
    /// the window has changed since.
    std::optional<ClientReading> take(xcb_window_t window);

private:
    struct Entry {
        Described described;
        EventPump::TimePoint readAt;
    };

    void forget(const xcb_generic_event_t &event);

    const XConnection &m_connection;
    const ClientReader &m_reader;
    std::unordered_map<xcb_window_t, Entry> m_entries;
};

} // namespace Panorel::X11
