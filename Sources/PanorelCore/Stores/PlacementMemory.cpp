#include "PanorelCore/Stores/PlacementMemory.h"

#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

PlacementMemory::PlacementMemory(AppLog &log, const Clock &clock)
    : m_store(Paths::file(QStringLiteral("placements.json")), log, clock),
      m_placements(m_store.load().value_or(std::vector<AppPlacement>{}))
{
    findPlaces();
}

/// Should a hand-edited file hold an application twice for one desk, the first one counts.
void PlacementMemory::findPlaces()
{
    m_places.clear();
    for (std::size_t i = 0; i < m_placements.size(); ++i)
        m_places.try_emplace({m_placements[i].configID, m_placements[i].bundleID}, i);
}

void PlacementMemory::remember(const QString &configID, const std::vector<WindowRecord> &windows)
{
    std::map<QString, std::vector<WindowRecord>> byApplication;
    for (const WindowRecord &window : windows)
        byApplication[window.bundleID].push_back(window);

    bool changed = false;
    for (auto &[bundleID, records] : byApplication)
        changed |= replace({configID, bundleID, std::move(records)});
    if (changed)
        m_store.save(m_placements);
}

bool PlacementMemory::replace(const AppPlacement &placement)
{
    const auto [entry, isNew] =
        m_places.try_emplace({placement.configID, placement.bundleID}, m_placements.size());
    if (isNew) {
        m_placements.push_back(placement);
        return true;
    }
    AppPlacement &known = m_placements[entry->second];
    if (known == placement)
        return false;
    known = placement;
    return true;
}

std::vector<WindowRecord> PlacementMemory::windows(const QString &configID,
                                                   const QString &bundleID) const
{
    const auto found = m_places.find({configID, bundleID});
    return found == m_places.end() ? std::vector<WindowRecord>{}
                                   : m_placements[found->second].windows;
}

void PlacementMemory::forgetDesk(const QString &configID)
{
    const auto forgotten = std::erase_if(m_placements, [&](const AppPlacement &placement) {
        return placement.configID == configID;
    });
    if (forgotten == 0)
        return;
    findPlaces();
    m_store.save(m_placements);
}

bool PlacementMemory::replaceAll(std::vector<AppPlacement> contents)
{
    m_placements = std::move(contents);
    return m_store.save(m_placements);
}

} // namespace Panorel
