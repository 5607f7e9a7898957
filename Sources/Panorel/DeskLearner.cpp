#include "Panorel/DeskLearner.h"

#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"

namespace Panorel {

DeskLearner::DeskLearner(WindowSnapshotter &snapshotter, DisplayWatcher &watcher,
                         LayoutStore &layouts, PlacementMemory &placements, UsageStore &usage,
                         const Clock &clock)
    : m_snapshotter(snapshotter), m_watcher(watcher), m_layouts(layouts), m_placements(placements),
      m_usage(usage), m_clock(clock)
{}

bool DeskLearner::learn()
{
    Layout layout = capture(QStringLiteral("Default"));
    if (layout.windows.empty())
        return false;
    if (!m_watcher.isCurrent()) {
        // The windows may be where the change has thrown them, and its event is still unread.
        m_watcher.scheduleSettle();
        return false;
    }
    const Layout *known = m_layouts.layoutFor(layout.configID);
    if (known && known->windows == layout.windows)
        return false;
    const QString configID = layout.configID;
    save(std::move(layout));
    m_usage.record(UsageEvents::Desk{configID});
    return true;
}

std::size_t DeskLearner::saveNow()
{
    Layout layout = capture(QStringLiteral("Default"));
    const std::size_t count = layout.windows.size();
    if (count > 0)
        save(std::move(layout));
    return count;
}

Layout DeskLearner::capture(const QString &layoutName)
{
    Layout layout;
    layout.configID = m_watcher.configID();
    layout.name = m_layouts.deskName(layout.configID);
    layout.layoutName = layoutName;
    layout.savedAt = m_clock.now();
    layout.displays = m_watcher.displays();
    layout.windows = m_snapshotter.snapshot(layout.displays);
    return layout;
}

void DeskLearner::save(Layout layout)
{
    m_placements.remember(layout.configID, layout.windows);
    m_layouts.saveLearned(std::move(layout));
}

} // namespace Panorel
