#pragma once

#include "PanorelCore/Matching/RestoreReport.h"
#include "PanorelCore/Records/Models.h"
#include "PanorelEngine/Windows/RestorePlan.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QString>
#include <QStringList>

#include <set>
#include <vector>

namespace Panorel {

class AppLog;
class ApplicationLauncherPort;
class DesktopPicturePort;
class RestoreEngine;
class SceneStore;
class UsageStore;

/// What switching to a scene would do.
struct ScenePlan {
    QStringList opened; ///< applications that would be started, by id
    QStringList hidden; ///< applications that would be hidden, by name
    RestorePlan windows;
};

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

    /// What apply() would do at this moment; changes nothing and logs nothing.
    ScenePlan plan(const SceneRecord &scene, bool alsoRestoreSize);

private:
    using Running = std::vector<RunningApplication>;
    struct Missing {
        QString bundleID;
        QString location; ///< for the launcher
    };

    std::vector<Missing> missing(const SceneRecord &scene, const Running &running);
    Running others(const SceneRecord &scene, const Running &running);
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
