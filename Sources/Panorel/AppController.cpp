#include "Panorel/AppController.h"

#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/JSON/PanorelJSON.h"

#include <algorithm>

namespace Panorel {

namespace {

constexpr std::chrono::seconds learnInterval(90);
constexpr std::chrono::minutes longestEnd(10);

} // namespace

AppController::AppController(PanelModel &panelModel, const AppServices &services)
    : m_panelModel(panelModel), m_services(services), m_stores(services.log, services.clock),
      m_permission(services.platform.accessibility()),
      m_snapshotter(services.platform.accessibility(), services.platform.windowList(),
                    services.platform.workspace()),
      m_engine(m_stores.rules, m_snapshotter, services.platform.accessibility(), services.log,
               services.clock),
      m_learner(m_snapshotter, services.displayWatcher, m_stores.layouts, m_stores.placements,
                m_stores.usage, services.clock),
      m_sceneApplier(m_engine, m_stores.scenes, m_stores.usage, services.platform.workspace(),
                     services.platform.launcher(), services.platform.desktopPicture(),
                     services.log),
      m_stash(m_engine, m_stores.usage, m_snapshotter, services.platform.accessibility(),
              services.platform.workspace(), services.scheduler, services.log, services.clock,
              [this](const QString &configID) { return m_stores.layouts.layoutFor(configID); }),
      m_launchPlacement(
          m_stores.layouts, m_stores.rules, m_stores.placements, services.platform.accessibility(),
          services.platform.workspace(), services.scheduler, services.log,
          [this] {
              refreshWhileSettling();
              return m_services.displayWatcher.configID();
          },
          [this] { return m_services.prefs.enabled() && m_services.prefs.placeNewApps(); }),
      m_timeTriggers(m_stores.triggers, services.platform.alarm(), services.log, services.clock,
                     [this](const TriggerRecord &trigger) { applyScene(trigger.sceneID); }),
      m_calendarMonitor(
          m_stores.triggers, services.platform.calendar(), services.scheduler, services.log,
          services.clock,
          [this](const TriggerRecord &trigger, const QString &) { applyScene(trigger.sceneID); }),
      m_keys(services, m_stores.scenes,
             {.fixed = [this](FixedAction action) { perform(action); },
              .applyScene = [this](const QUuid &id) { applyScene(id); }})
{
    installPanelActions();

    DisplayWatcher &watcher = m_services.displayWatcher;
    watcher.setOnDeskSettled(
        [this](const QString &configID, const auto &displays) { deskSettled(configID, displays); });
    takeSettleSeconds();
    watcher.start();

    m_learnTimer = m_services.scheduler.repeat(learnInterval, [this] { learn(); });
    learn();
    reloadHotKeys();
    m_timeTriggers.reload();
    m_calendarMonitor.start();
    m_launchPlacement.start();
    refreshPanel();
}

AppController::~AppController()
{
    m_services.displayWatcher.setOnDeskSettled({});
    m_panelModel.onRestoreNow = {};
    m_panelModel.onUndo = {};
    m_panelModel.onStash = {};
    m_panelModel.onApplyScene = {};
    m_panelModel.onSaveScene = {};
    m_panelModel.onGrantPermission = {};
    m_panelModel.onOpening = {};
}

void AppController::takeSettleSeconds()
{
    m_services.displayWatcher.setSettleSeconds(m_services.prefs.usableSettleSeconds());
}

void AppController::installPanelActions()
{
    m_panelModel.onRestoreNow = [this] { restoreNow(); };
    m_panelModel.onUndo = [this] { undoLastRestore(); };
    m_panelModel.onStash = [this] { toggleStash(); };
    m_panelModel.onApplyScene = [this](const QUuid &id) { applyScene(id); };
    m_panelModel.onSaveScene = [this] { saveCurrentAsScene(); };
    m_panelModel.setIsPermissionGrantedByUser(m_permission.isGrantedByUser());
    if (m_permission.isGrantedByUser())
        m_panelModel.onGrantPermission = [this] { m_permission.promptAccessibility(); };
    m_panelModel.onOpening = [this] { refreshPanel(); };
}

void AppController::learn()
{
    if (!m_services.prefs.enabled() || !hasAccessibility() || !mayLearn())
        return;
    if (m_learner.learn())
        refreshPanel();
}

/// Logged when it changes: without it nothing happens, and somebody will look for the reason.
bool AppController::hasAccessibility()
{
    const bool granted = m_permission.hasAccessibility();
    if (m_loggedPermission.value_or(true) != granted)
        m_services.log.log(granted
                               ? QStringLiteral("accessibility: windows can be moved again")
                               : QStringLiteral("accessibility: windows can't be read or moved"));
    m_loggedPermission = granted;
    return granted;
}

bool AppController::mayLearn()
{
    const DisplayWatcher &watcher = m_services.displayWatcher;
    return !m_ending && !m_layoutAwaitsUser && !m_engine.isRestoring() && !m_stash.isDeskAway()
           && !watcher.isSettling() && !watcher.displays().empty();
}

void AppController::deskSettled(const QString &configID, const std::vector<DisplayInfo> &)
{
    if (m_ending)
        return;
    refreshPanel();
    const Layout *layout = m_stores.layouts.layoutFor(configID);
    m_layoutAwaitsUser = false;
    if (!layout)
        return;
    const Prefs &prefs = m_services.prefs;
    if (!prefs.enabled() || !prefs.restoreAutomatically() || !hasAccessibility()) {
        m_layoutAwaitsUser = true;
        m_services.log.log(QStringLiteral("learn: waiting, this desk was not restored"));
        return;
    }
    const RestoreReport report = restore(*layout);
    m_panelModel.setLastAction(QStringLiteral("Put back %1 windows").arg(report.restored));
    refreshPanel();
}

std::optional<RestoreReport> AppController::restoreNow()
{
    m_services.log.log(QStringLiteral("panel: Restore Now clicked"));
    refreshWhileSettling();
    const Layout *layout = currentLayout();
    if (!layout) {
        m_panelModel.setLastAction(QStringLiteral("No layout saved yet"));
        return {};
    }
    const std::size_t count = layout->windows.size();
    m_services.log.log(QStringLiteral("restoreNow: restoring %1 windows (saved %2)")
                           .arg(count)
                           .arg(PanorelJSON::iso().string(layout->savedAt)));
    const RestoreReport report = restore(*layout);
    m_panelModel.setLastAction(
        QStringLiteral("Put back %1 of %2 windows").arg(report.restored).arg(count));
    refreshPanel();
    return report;
}

std::optional<RestoreReport> AppController::undoLastRestore()
{
    auto report = m_engine.undoLast(m_services.prefs.alsoRestoreSizes());
    if (!report)
        return {};
    m_panelModel.setLastAction(QStringLiteral("Undid restore: %1 windows").arg(report->restored));
    refreshPanel();
    return report;
}

std::size_t AppController::saveLayoutNow()
{
    refreshWhileSettling();
    const std::size_t count = m_learner.saveNow();
    if (count == 0)
        return 0;
    m_layoutAwaitsUser = false;
    m_services.log.log(QStringLiteral("hotkey: layout saved (%1 windows)").arg(count));
    refreshPanel();
    return count;
}

void AppController::perform(FixedAction action)
{
    switch (action) {
    case FixedAction::Stash:
        return toggleStash();
    case FixedAction::Restore:
        restoreNow();
        return;
    case FixedAction::SaveLayout:
        saveLayoutNow();
        return;
    case FixedAction::Undo:
        undoLastRestore();
        return;
    }
}

void AppController::toggleStash()
{
    refreshWhileSettling();
    const DisplayWatcher &watcher = m_services.displayWatcher;
    m_stash.toggle(watcher.displays(), watcher.configID(), m_services.prefs.alsoRestoreSizes());
    m_panelModel.setIsStashed(m_stash.isStashed());
    m_panelModel.setLastAction(m_stash.isStashed() ? QStringLiteral("Desk stashed")
                                                   : QStringLiteral("Desk brought back"));
    refreshPanel();
}

std::optional<SceneRecord> AppController::sceneAsApplied(const QUuid &id) const
{
    const SceneRecord *stored = m_stores.scenes.scene(id);
    if (!stored)
        return {};
    SceneRecord scene = *stored;
    scene.hidesOtherApps |= m_services.prefs.hideOthersOnSwitch();
    return scene;
}

std::optional<RestoreReport> AppController::applyScene(const QUuid &id)
{
    const auto stored = sceneAsApplied(id);
    if (!stored)
        return {};
    refreshWhileSettling();
    const SceneRecord &scene = *stored;
    m_stash.cancelReturn();
    const RestoreReport report = m_sceneApplier.apply(scene, m_services.prefs.alsoRestoreSizes());
    m_layoutAwaitsUser = false;
    m_panelModel.setLastAction(
        QStringLiteral("Applied %1: %2 windows").arg(scene.name, QString::number(report.restored)));
    refreshPanel();
    return report;
}

std::optional<RestorePlan> AppController::planRestore()
{
    refreshWhileSettling();
    const Layout *layout = currentLayout();
    if (!layout)
        return {};
    return m_engine.plan(*layout, m_services.prefs.alsoRestoreSizes());
}

std::optional<ScenePlan> AppController::planScene(const QUuid &id)
{
    const auto scene = sceneAsApplied(id);
    if (!scene)
        return {};
    return m_sceneApplier.plan(*scene, m_services.prefs.alsoRestoreSizes());
}

bool AppController::replaceState(const SavedState &state)
{
    m_services.log.log(QStringLiteral("import: taking over %1 desks and %2 scenes")
                           .arg(state.layouts.layouts.size())
                           .arg(state.scenes.scenes.size()));
    const bool saved = m_stores.replace(state, m_services.prefs);
    takeSettleSeconds();
    reloadHotKeys();
    m_timeTriggers.reload();
    m_layoutAwaitsUser = currentLayout() != nullptr;
    if (m_layoutAwaitsUser)
        m_services.log.log(QStringLiteral("learn: waiting, the layout of this desk was imported"));
    refreshPanel();
    return saved;
}

void AppController::saveCurrentAsScene()
{
    refreshWhileSettling();
    const auto count = m_stores.scenes.scenesFor(m_services.displayWatcher.configID()).size();
    addSceneFromCurrentWindows(QStringLiteral("Scene %1").arg(count + 1));
    m_panelModel.setLastAction(QStringLiteral("Scene saved"));
    refreshPanel();
}

SceneRecord AppController::addSceneFromCurrentWindows(const QString &name)
{
    SceneRecord scene;
    scene.id = QUuid::createUuid();
    scene.configID = m_services.displayWatcher.configID();
    scene.name = name;
    scene.createdAt = m_services.clock.now();
    scene.layout = m_learner.capture(name);
    m_stores.scenes.add(scene);
    reloadHotKeys();
    refreshPanel();
    return scene;
}

void AppController::forgetDesk(const QString &configID)
{
    m_stores.layouts.forgetDesk(configID);
    m_stores.placements.forgetDesk(configID);
    refreshPanel();
}

void AppController::refreshPanel()
{
    const DisplayWatcher &watcher = m_services.displayWatcher;
    m_panelModel.setHasPermission(hasAccessibility());
    m_panelModel.setDeskName(m_stores.layouts.deskName(watcher.configID()));
    m_panelModel.setDisplays(watcher.displays());
    const Layout *layout = currentLayout();
    m_panelModel.setWindowCount(layout ? qint64(layout->windows.size()) : 0);
    m_panelModel.setScenes(m_stores.scenes.scenesFor(watcher.configID()));
    m_panelModel.setCanUndo(m_engine.lastUndo().has_value());
}

void AppController::prepareToEnd()
{
    m_ending = m_services.scheduler.runAfter(longestEnd, [this] {
        m_services.log.log(QStringLiteral("session: it goes on after all"));
        m_ending.reset();
    });
}

/// While displays settle the watcher still shows the desk before; the user means the one there is.
void AppController::refreshWhileSettling()
{
    if (m_services.displayWatcher.isSettling())
        m_services.displayWatcher.refresh();
}

const Layout *AppController::currentLayout() const
{
    return m_stores.layouts.layoutFor(m_services.displayWatcher.configID());
}

RestoreReport AppController::restore(const Layout &layout)
{
    m_stash.cancelReturn();
    RestoreReport report = m_engine.apply(layout, m_services.prefs.alsoRestoreSizes());
    m_layoutAwaitsUser = false;
    m_stores.usage.record(UsageEvents::Restore{report.restored});
    return report;
}

} // namespace Panorel
