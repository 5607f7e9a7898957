#include "PanorelEngine/Launch/LaunchPlacement.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Matching/WindowMatcher.h"
#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelEngine/Windows/AXWindow.h"
#include "PanorelPorts/Scheduler.h"
#include "PanorelPorts/WorkspacePort.h"

#include <algorithm>

namespace Panorel {

namespace {

constexpr int maximumLooks = 40;
constexpr std::chrono::milliseconds lookInterval(500);

/// Sends every window that has a record to its place, and tells how many.
int moveToRecords(const std::vector<WindowRecord> &records, const std::vector<AXWindow> &windows)
{
    std::vector<LiveWindow> live;
    for (const AXWindow &window : windows)
        live.push_back(
            {qint64(live.size()), records.front().bundleID, window.title(), window.frame()});
    int moved = 0;
    for (const MatchResult &match : WindowMatcher::match(records, live)) {
        if (!match.liveID)
            continue;
        windows[std::size_t(*match.liveID)].apply(match.record.frame.origin(),
                                                  match.record.frame.size());
        moved += 1;
    }
    return moved;
}

} // namespace

LaunchPlacement::LaunchPlacement(LayoutStore &layouts, AppRuleStore &rules,
                                 const PlacementMemory &memory, AccessibilityPort &accessibility,
                                 WorkspacePort &workspace, Scheduler &scheduler, AppLog &log,
                                 std::function<QString()> currentConfigID,
                                 std::function<bool()> isWanted)
    : m_layouts(layouts), m_rules(rules), m_memory(memory), m_accessibility(accessibility),
      m_workspace(workspace), m_scheduler(scheduler), m_log(log),
      m_currentConfigID(std::move(currentConfigID)), m_isWanted(std::move(isWanted))
{}

LaunchPlacement::~LaunchPlacement()
{
    if (m_started)
        m_workspace.setLaunchCallback({});
}

void LaunchPlacement::start()
{
    if (std::exchange(m_started, true))
        return;
    m_workspace.setLaunchCallback(
        [this](const RunningApplication &application) { launched(application); });
}

void LaunchPlacement::launched(const RunningApplication &application)
{
    const bool isOrdinary = application.policy == ActivationPolicy::Regular && application.bundleID;
    if (isOrdinary && m_isWanted())
        place(*application.bundleID, application.pid, 0);
}

void LaunchPlacement::place(const QString &bundleID, ProcessIdentifier pid, int attempt)
{
    m_nextLooks.erase(pid); // one that waits for an earlier launch has nothing left to do
    if (attempt >= maximumLooks || m_rules.rule(bundleID).ignored)
        return;
    const std::vector<WindowRecord> records = recordsFor(bundleID);
    if (records.empty())
        return;
    std::vector<AXWindow> windows = AXWindow::windows(m_accessibility, pid);
    std::erase_if(windows, [](const AXWindow &window) { return window.isMinimized(); });
    if (windows.empty())
        return lookAgain(bundleID, pid, attempt + 1);

    const int moved = moveToRecords(records, windows);
    if (moved > 0)
        m_log.log(QStringLiteral("launch placement: moved %1 windows for %2")
                      .arg(moved)
                      .arg(forLog(records.front().appName)));
}

/// Those of the learned layout; where it has none because the application was not running when
/// it was learned, those of the last time it was.
std::vector<WindowRecord> LaunchPlacement::recordsFor(const QString &bundleID) const
{
    const QString configID = m_currentConfigID();
    const Layout *layout = m_layouts.layoutFor(configID);
    if (!layout)
        return {};
    std::vector<WindowRecord> records;
    std::ranges::copy_if(layout->windows, std::back_inserter(records),
                         [&](const WindowRecord &record) { return record.bundleID == bundleID; });
    return records.empty() ? m_memory.windows(configID, bundleID) : records;
}

void LaunchPlacement::lookAgain(const QString &bundleID, ProcessIdentifier pid, int attempt)
{
    m_nextLooks[pid] = m_scheduler.runAfter(lookInterval, [this, bundleID, pid, attempt] {
        const QString id = bundleID; // place() drops the task and this closure with it
        place(id, pid, attempt);
    });
}

} // namespace Panorel
