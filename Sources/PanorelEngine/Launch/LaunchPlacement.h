#pragma once

#include "PanorelCore/Records/Models.h"
#include "PanorelPorts/ProcessIdentifier.h"

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace Panorel {

class AccessibilityPort;
class AppLog;
class AppRuleStore;
class LayoutStore;
class PlacementMemory;
class ScheduledTask;
class Scheduler;
class WorkspacePort;
struct RunningApplication;

/// Moves the windows of an application that the user has just started to where they usually are
/// on this desk. It is done once for each launch, as soon as there is a window: what the
/// application opens later is left where it opens. Every failure is silent. Main thread only.
class LaunchPlacement {
public:
    /// `currentConfigID` tells the desk, `isWanted` whether the user wants placing at all; it is
    /// asked at each launch. All of them must outlive this.
    LaunchPlacement(LayoutStore &layouts, AppRuleStore &rules, const PlacementMemory &memory,
                    AccessibilityPort &accessibility, WorkspacePort &workspace,
                    Scheduler &scheduler, AppLog &log, std::function<QString()> currentConfigID,
                    std::function<bool()> isWanted);
    ~LaunchPlacement();
    LaunchPlacement(const LaunchPlacement &) = delete;
    LaunchPlacement &operator=(const LaunchPlacement &) = delete;

    /// Listens for launches from now on. A second call does nothing.
    void start();

    /// One look at the application, the first being attempt 0. Places its windows, or looks again
    /// later where there is none yet.
    void place(const QString &bundleID, ProcessIdentifier pid, int attempt);

private:
    void launched(const RunningApplication &application);
    std::vector<WindowRecord> recordsFor(const QString &bundleID) const;
    void lookAgain(const QString &bundleID, ProcessIdentifier pid, int attempt);

    LayoutStore &m_layouts;
    AppRuleStore &m_rules;
    const PlacementMemory &m_memory;
    AccessibilityPort &m_accessibility;
    WorkspacePort &m_workspace;
    Scheduler &m_scheduler;
    AppLog &m_log;
    std::function<QString()> m_currentConfigID;
    std::function<bool()> m_isWanted;
    bool m_started = false;
    std::map<ProcessIdentifier, std::unique_ptr<ScheduledTask>> m_nextLooks;
};

} // namespace Panorel
