#include "PanorelX11/Windows/X11WindowList.h"

namespace Panorel::X11 {

std::optional<std::vector<WindowListEntry>> X11WindowList::onScreenWindows()
{
    const auto clients = m_registry.frontToBack();
    if (!clients)
        return std::nullopt;
    m_hidden.processEvents();
    // What is hidden, going or coming back is not looked at: no event tells that a reading from the
    // middle of an animation is out of date.
    std::vector<ClientRegistry::Client> candidates;
    std::vector<xcb_window_t> ids;
    for (const auto &client : *clients) {
        if (m_hidden.contains(client.window))
            continue;
        candidates.push_back(client);
        ids.push_back(client.window);
    }
    const auto readings = m_readings.describe(ids);

    std::vector<WindowListEntry> entries;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!readings[i] || readings[i]->reading.isMinimized)
            continue;
        const ClientFacts &facts = candidates[i].facts;
        entries.push_back({facts.layer, facts.application,
                           readings[i]->reading.geometry.visibleFrame().toRect(),
                           readings[i]->reading.opacity});
    }
    return entries;
}

} // namespace Panorel::X11
