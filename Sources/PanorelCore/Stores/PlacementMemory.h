#pragma once

#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Records/ModelCoding.h"

namespace Panorel {

/// Where applications that are not running now had their windows, by desk, in placements.json.
/// A learned layout is replaced whole and so forgets an application soon after it quits; launch
/// placement would then never have anything to go by. Restores and scenes don't ask here: they
/// bring back what was there together.
class PlacementMemory {
public:
    PlacementMemory(AppLog &log, const Clock &clock);

    /// The windows of one learn pass, of any number of applications. What was kept for each of
    /// these on that desk is replaced, the others keep theirs. Saves where something has changed.
    void remember(const QString &configID, const std::vector<WindowRecord> &windows);

    /// In the order of the pass; empty where nothing is known.
    std::vector<WindowRecord> windows(const QString &configID, const QString &bundleID) const;

    void forgetDesk(const QString &configID);

    const std::vector<AppPlacement> &all() const { return m_placements; }

    /// Takes all of it in place of what is there, and saves. False where the file can't be
    /// written; then it holds only as long as the program runs.
    bool replaceAll(std::vector<AppPlacement> contents);

private:
    using Key = std::pair<QString, QString>; ///< desk and application

    /// True where this is news.
    bool replace(const AppPlacement &placement);
    void findPlaces();

    JSONStore<std::vector<AppPlacement>> m_store;
    std::vector<AppPlacement> m_placements;
    std::map<Key, std::size_t> m_places; ///< in m_placements
};

} // namespace Panorel
