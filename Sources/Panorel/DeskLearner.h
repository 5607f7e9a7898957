#pragma once

#include "PanorelCore/Records/Models.h"

#include <QString>

#include <cstddef>

namespace Panorel {

class DisplayWatcher;
class LayoutStore;
class PlacementMemory;
class UsageStore;
class WindowSnapshotter;

/// Reads the desk that is there and keeps what it sees: as the desk's layout, and for each
/// application in the placement memory. Whether this is the time to learn is the caller's
/// decision.
class DeskLearner {
public:
    /// All of them must outlive it.
    DeskLearner(WindowSnapshotter &snapshotter, DisplayWatcher &watcher, LayoutStore &layouts,
                PlacementMemory &placements, UsageStore &usage, const Clock &clock);

    /// True where the desk has changed and was saved. Nothing is saved of a desk without windows,
    /// nor while the displays are others than the watcher knows: their event is still unread, and
    /// a settle is begun.
    bool learn();

    /// Saves also what has not changed. Returns how many windows; with none nothing is saved.
    std::size_t saveNow();

    /// The desk as it is, also without windows.
    Layout capture(const QString &layoutName);

private:
    void save(Layout layout);

    WindowSnapshotter &m_snapshotter;
    DisplayWatcher &m_watcher;
    LayoutStore &m_layouts;
    PlacementMemory &m_placements;
    UsageStore &m_usage;
    const Clock &m_clock;
};

} // namespace Panorel
