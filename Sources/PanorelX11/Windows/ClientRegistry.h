#pragma once

#include "PanorelX11/Applications/ApplicationIdentifier.h"
#include "PanorelX11/Windows/ApplicationNumbers.h"
#include "PanorelX11/Windows/EventPump.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace Panorel::X11 {

/// What about a window hardly ever changes.
struct ClientFacts {
    ProcessIdentifier application = 0;
    ApplicationIdentity identity;
    /// 0 for a window that belongs to its application's work; panels, desktops, menus and the
    /// like have another.
    std::int64_t layer = 0;
    bool isOnTaskBar = false;

    bool isOrdinary() const { return layer == 0; }
};

/// The windows that the window manager manages, all desktops together, and whose they are. Facts
/// are read once for each window and again only when one of their properties changes.
///
/// Selects structure and property events of every client on the connection, so that whoever
/// places a window hears of it from the same pump.
class ClientRegistry {
public:
    struct Client {
        xcb_window_t window = XCB_WINDOW_NONE;
        ClientFacts facts;
    };

    /// The connection and the pump outlive it.
    ClientRegistry(const XConnection &connection, EventPump &pump);

    /// The clients of now, front to back: one round trip, and a second one where windows are new
    /// or their facts have changed. Absent where nobody keeps a list.
    std::optional<std::vector<Client>> frontToBack();

    /// The ordinary windows of one application, front to back. No round trip for a list that was
    /// read within the same pass over the desk, unless an event has told of a change since.
    std::vector<xcb_window_t> ordinaryWindows(ProcessIdentifier application);

    /// The event loop runs: what is asked next belongs to another pass.
    void endPass() { m_ofThisPass.reset(); }

    /// Whether the event may be news to who knows the clients of before.
    bool isAffectedBy(const xcb_generic_event_t &event) const;

private:
    void forget(const xcb_generic_event_t &event);
    std::optional<std::vector<xcb_window_t>> readList() const;
    void readFacts(const std::vector<xcb_window_t> &windows);

    const XConnection &m_connection;
    EventPump &m_pump;
    ApplicationIdentifier m_identifier;
    ApplicationNumbers m_numbers;
    std::unordered_map<xcb_window_t, ClientFacts> m_facts;
    std::optional<std::vector<Client>> m_ofThisPass; ///< absent: to be read
    EventPump::TimePoint m_readAt{};
};

} // namespace Panorel::X11
