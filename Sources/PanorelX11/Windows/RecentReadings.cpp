#include "PanorelX11/Windows/RecentReadings.h"

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

/// Longer than one pass over a crowded desk, and too short for anything to happen unnoticed.
constexpr auto recent = 100ms;

/// The window that an event tells a change of; none for events of other kinds.
xcb_window_t changedWindow(const xcb_generic_event_t &event)
{
    switch (eventCode(event)) {
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t &>(event).window;
    case XCB_REPARENT_NOTIFY:
        return reinterpret_cast<const xcb_reparent_notify_event_t &>(event).window;
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t &>(event).window;
    case XCB_UNMAP_NOTIFY:
        return reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window;
    case XCB_DESTROY_NOTIFY:
        return reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window;
    case XCB_PROPERTY_NOTIFY:
        return reinterpret_cast<const xcb_property_notify_event_t &>(event).window;
    default:
        return XCB_WINDOW_NONE;
    }
}

} // namespace

RecentReadings::RecentReadings(const XConnection &connection, EventPump &pump,
                               const ClientReader &reader)
    : m_connection(connection), m_reader(reader)
{
    pump.addListener([this](const xcb_generic_event_t &event) { forget(event); });
}

std::vector<std::optional<RecentReadings::Described>>
RecentReadings::describe(const std::vector<xcb_window_t> &windows)
{
    const auto now = std::chrono::steady_clock::now();
    std::vector<xcb_window_t> unknown;
    for (const xcb_window_t window : windows) {
        const auto known = m_entries.find(window);
        if (known == m_entries.end() || now - known->second.readAt > recent)
            unknown.push_back(window);
    }
    if (!unknown.empty()) {
        auto readings = m_reader.readWithTitles(unknown);
        for (std::size_t i = 0; i < unknown.size(); ++i) {
            m_entries.erase(unknown[i]);
            if (readings[i].first)
                m_entries.emplace(unknown[i],
                                  Entry{{*readings[i].first, std::move(readings[i].second)}, now});
        }
    }
    std::vector<std::optional<Described>> described;
    described.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        const auto known = m_entries.find(window);
        described.push_back(known == m_entries.end() ? std::nullopt
                                                     : std::optional(known->second.described));
    }
    return described;
}

std::optional<ClientReading> RecentReadings::take(xcb_window_t window)
{
    const auto entry = m_entries.extract(window);
    return entry ? std::optional(entry.mapped().described.reading) : std::nullopt;
}

void RecentReadings::forget(const xcb_generic_event_t &event)
{
    const xcb_window_t window = changedWindow(event);
    if (window != m_connection.root()) {
        m_entries.erase(window);
        return;
    }
    // Whether a window is on the current desktop, and with that whether it is minimised.
    const auto *notify = reinterpret_cast<const xcb_property_notify_event_t *>(&event);
    if (eventCode(event) == XCB_PROPERTY_NOTIFY
        && notify->atom == m_connection.atom("_NET_CURRENT_DESKTOP"))
        m_entries.clear();
}

} // namespace Panorel::X11
