#include "PanorelEngine/Scenes/SceneApplier.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelPorts/ApplicationPorts.h"
#include "PanorelPorts/DesktopPicturePort.h"

namespace Panorel {

namespace {

bool belongsTo(const std::set<QString> &sceneApps, const RunningApplication &application)
{
    return application.bundleID && sceneApps.contains(*application.bundleID);
}

} // namespace

SceneApplier::SceneApplier(RestoreEngine &engine, SceneStore &scenes, UsageStore &usage,
                           WorkspacePort &workspace, ApplicationLauncherPort &launcher,
                           DesktopPicturePort &picture, AppLog &log)
    : m_engine(engine), m_scenes(scenes), m_usage(usage), m_workspace(workspace),
      m_launcher(launcher), m_picture(picture), m_log(log)
{}

RestoreReport SceneApplier::apply(const SceneRecord &scene, bool alsoRestoreSize)
{
    std::set<QString> sceneApps;
    for (const WindowRecord &window : scene.layout.windows)
        sceneApps.insert(window.bundleID);
    const Running running = m_workspace.runningApplications();

    if (scene.opensMissingApps)
        openMissing(sceneApps, running);
    if (scene.hidesOtherApps)
        hideOthers(sceneApps, running);
    if (scene.wallpaperPath)
        m_picture.setDesktopPicture(*scene.wallpaperPath);
    bringBackOwn(sceneApps, running);

    const RestoreReport report = m_engine.apply(scene.layout, alsoRestoreSize);
    m_scenes.markApplied(scene.id, scene.configID);
    m_usage.record(UsageEvents::SceneSwitch{});
    m_log.log(QStringLiteral("scene applied: ") + scene.name + QStringLiteral(", ")
              + report.summary());
    return report;
}

void SceneApplier::openMissing(const std::set<QString> &sceneApps, const Running &running)
{
    std::set<QString> missing = sceneApps;
    for (const RunningApplication &application : running) {
        if (application.bundleID)
            missing.erase(*application.bundleID);
    }
    for (const QString &bundleID : missing) {
        if (const auto location = m_launcher.locate(bundleID))
            m_launcher.open(*location);
    }
}

void SceneApplier::hideOthers(const std::set<QString> &sceneApps, const Running &running)
{
    for (const RunningApplication &application : running) {
        const bool isOrdinary = application.policy == ActivationPolicy::Regular
                                && application.pid != m_workspace.ownProcessIdentifier();
        if (isOrdinary && !belongsTo(sceneApps, application))
            m_workspace.hide(application.pid);
    }
}

/// Otherwise two scenes that hide each other's applications could never be switched. Asked of
/// each, hidden or not: the user may have brought back only some of an application's windows.
void SceneApplier::bringBackOwn(const std::set<QString> &sceneApps, const Running &running)
{
    for (const RunningApplication &application : running) {
        if (belongsTo(sceneApps, application))
            m_workspace.unhide(application.pid);
    }
}

} // namespace Panorel
