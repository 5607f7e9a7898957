#include "PanorelCore/Stores/PlacementMemory.h"

#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

namespace {

auto isFor(const QString &configID, const QString &bundleID)
{
    return [&](const AppPlacement &placement) {
        return placement.configID == configID && placement.bundleID == bundleID;
    };
}

} // namespace

PlacementMemory::PlacementMemory(AppLog &log, const Clock &clock)
    : m_store(Paths::file(QStringLiteral("placements.json")), log, clock),
      m_placements(m_store.load().value_or(std::vector<AppPlacement>{}))
{}

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
    const auto found =
        std::ranges::find_if(m_placements, isFor(placement.configID, placement.bundleID));
    if (found == m_placements.end()) {
        m_placements.push_back(placement);
        return true;
    }
    if (*found == placement)
        return false;
    *found = placement;
    return true;
}

std::vector<WindowRecord> PlacementMemory::windows(const QString &configID,
                                                   const QString &bundleID) const
{
    const auto found = std::ranges::find_if(m_placements, isFor(configID, bundleID));
    return found == m_placements.end() ? std::vector<WindowRecord>{} : found->windows;
}

void PlacementMemory::forgetDesk(const QString &configID)
{
    const auto forgotten = std::erase_if(m_placements, [&](const AppPlacement &placement) {
        return placement.configID == configID;
    });
    if (forgotten > 0)
        m_store.save(m_placements);
}

bool PlacementMemory::replaceAll(std::vector<AppPlacement> contents)
{
    m_placements = std::move(contents);
    return m_store.save(m_placements);
}

} // namespace Panorel
