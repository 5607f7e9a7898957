#include "PanorelEngine/Scenes/SceneApplier.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelPorts/ApplicationPorts.h"
#include "PanorelPorts/DesktopPicturePort.h"

namespace Panorel {

namespace {

std::set<QString> applicationsOf(const SceneRecord &scene)
{
    std::set<QString> applications;
    for (const WindowRecord &window : scene.layout.windows)
        applications.insert(window.bundleID);
    return applications;
}

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
    const Running running = m_workspace.runningApplications();
    for (const Missing &application : missing(scene, running))
        m_launcher.open(application.location);
    for (const RunningApplication &application : others(scene, running))
        m_workspace.hide(application.pid);
    if (scene.wallpaperPath)
        m_picture.setDesktopPicture(*scene.wallpaperPath);
    bringBackOwn(applicationsOf(scene), running);

    const RestoreReport report = m_engine.apply(scene.layout, alsoRestoreSize);
    m_scenes.markApplied(scene.id, scene.configID);
    m_usage.record(UsageEvents::SceneSwitch{});
    m_log.log(QStringLiteral("scene applied: ") + forLog(scene.name) + QStringLiteral(", ")
              + report.summary());
    return report;
}

ScenePlan SceneApplier::plan(const SceneRecord &scene, bool alsoRestoreSize)
{
    const Running running = m_workspace.runningApplications();
    ScenePlan plan;
    for (const Missing &application : missing(scene, running))
        plan.opened.append(application.bundleID);
    for (const RunningApplication &application : others(scene, running))
        plan.hidden.append(
            application.localizedName.value_or(application.bundleID.value_or(QString())));
    plan.windows = m_engine.plan(scene.layout, alsoRestoreSize);
    return plan;
}

/// Those the scene opens; running means any that does.
std::vector<SceneApplier::Missing> SceneApplier::missing(const SceneRecord &scene,
                                                         const Running &running)
{
    if (!scene.opensMissingApps)
        return {};
    std::set<QString> absent = applicationsOf(scene);
    for (const RunningApplication &application : running) {
        if (application.bundleID)
            absent.erase(*application.bundleID);
    }
    std::vector<Missing> missing;
    for (const QString &bundleID : absent) {
        if (const auto location = m_launcher.locate(bundleID))
            missing.push_back({bundleID, *location});
    }
    return missing;
}

/// Those the scene hides.
SceneApplier::Running SceneApplier::others(const SceneRecord &scene, const Running &running)
{
    if (!scene.hidesOtherApps)
        return {};
    const std::set<QString> own = applicationsOf(scene);
    Running others;
    for (const RunningApplication &application : running) {
        const bool isOrdinary = application.policy == ActivationPolicy::Regular
                                && application.pid != m_workspace.ownProcessIdentifier();
        if (isOrdinary && !belongsTo(own, application))
            others.push_back(application);
    }
    return others;
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
