#pragma once

#include "PanorelCore/Matching/RestoreReport.h"
#include "PanorelCore/Records/Models.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QString>

#include <set>
#include <vector>

namespace Panorel {

class AppLog;
class ApplicationLauncherPort;
class DesktopPicturePort;
class RestoreEngine;
class SceneStore;
class UsageStore;

/// Switches the desk to a saved scene: starts what is missing, hides what doesn't belong to it,
/// changes the desktop picture, each where the scene asks for it, and puts its windows in place.
/// Main thread only.
class SceneApplier {
public:
    /// All of them must outlive the applier.
    SceneApplier(RestoreEngine &engine, SceneStore &scenes, UsageStore &usage,
                 WorkspacePort &workspace, ApplicationLauncherPort &launcher,
                 DesktopPicturePort &picture, AppLog &log);

    /// Does not wait for the applications it starts: the report counts their windows as skipped,
    /// and launch placement puts them in place when they come. What can't be started, hidden or
    /// shown is left out in silence.
    RestoreReport apply(const SceneRecord &scene, bool alsoRestoreSize);

private:
    using Running = std::vector<RunningApplication>;

    void openMissing(const std::set<QString> &sceneApps, const Running &running);
    void hideOthers(const std::set<QString> &sceneApps, const Running &running);
    void bringBackOwn(const std::set<QString> &sceneApps, const Running &running);

    RestoreEngine &m_engine;
    SceneStore &m_scenes;
    UsageStore &m_usage;
    WorkspacePort &m_workspace;
    ApplicationLauncherPort &m_launcher;
    DesktopPicturePort &m_picture;
    AppLog &m_log;
};

} // namespace Panorel
