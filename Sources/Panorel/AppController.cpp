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

namespace HotKeyID {
const QString restore = QStringLiteral("restore");
const QString saveLayout = QStringLiteral("savelayout");
const QString undo = QStringLiteral("undo");
} // namespace HotKeyID

/// A preference that is no usable number counts as the default.
double usableSettleSeconds(double stored)
{
    return stored >= 0 && stored <= 60 ? stored : 1.5;
}

} // namespace

AppController::AppController(PanelModel &panelModel, const AppServices &services)
    : m_panelModel(panelModel), m_services(services), m_layouts(services.log, services.clock),
      m_scenes(services.log, services.clock), m_usage(services.log, services.clock),
      m_rules(services.log, services.clock), m_permission(services.platform.accessibility()),
      m_snapshotter(services.platform.accessibility(), services.platform.windowList(),
                    services.platform.workspace()),
      m_engine(m_rules, m_snapshotter, services.platform.accessibility(), services.log,
               services.clock)
{
    installPanelActions();

    DisplayWatcher &watcher = m_services.displayWatcher;
    watcher.setOnDeskSettled(
        [this](const QString &configID, const auto &displays) { deskSettled(configID, displays); });
    watcher.setSettleSeconds(usableSettleSeconds(m_services.prefs.displaySettleSeconds()));
    watcher.start();

    m_learnTimer = m_services.scheduler.repeat(learnInterval, [this] { learn(); });
    learn();
    reloadHotKeys();
    refreshPanel();
}

AppController::~AppController()
{
    m_services.displayWatcher.setOnDeskSettled({});
    for (const auto &id : {HotKeyID::restore, HotKeyID::saveLayout, HotKeyID::undo})
        m_services.hotKeys.unregister(id);
    m_panelModel.onRestoreNow = {};
    m_panelModel.onUndo = {};
    m_panelModel.onGrantPermission = {};
    m_panelModel.onOpening = {};
}

void AppController::installPanelActions()
{
    m_panelModel.onRestoreNow = [this] { restoreNow(); };
    m_panelModel.onUndo = [this] { undoLastRestore(); };
    m_panelModel.onGrantPermission = [this] { m_permission.promptAccessibility(); };
    m_panelModel.onOpening = [this] { refreshPanel(); };
}

void AppController::learn()
{
    if (!m_services.prefs.enabled() || !hasAccessibility() || !mayLearn())
        return;
    const DisplayWatcher &watcher = m_services.displayWatcher;
    std::vector<WindowRecord> snapshot = m_snapshotter.snapshot(watcher.displays());
    if (snapshot.empty()) // an empty desk never overwrites a learned one
        return;
    if (!displaysAreCurrent()) {
        // The windows may be where the change has thrown them, and its event is still unread.
        m_services.displayWatcher.scheduleSettle();
        return;
    }
    const Layout *known = currentLayout();
    if (known && known->windows == snapshot)
        return;
    saveAsLayout(std::move(snapshot));
    m_usage.record(UsageEvents::Desk{watcher.configID()});
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

bool AppController::mayLearn() const
{
    const DisplayWatcher &watcher = m_services.displayWatcher;
    return !m_ending && !m_layoutAwaitsUser && !m_engine.isRestoring() && !watcher.isSettling()
           && !watcher.displays().empty();
}

bool AppController::displaysAreCurrent() const
{
    const auto same = [](const DisplayInfo &a, const DisplayInfo &b) {
        return a.uuid == b.uuid && a.edidUUID == b.edidUUID && a.frame == b.frame;
    };
    return std::ranges::equal(m_services.displayWatcher.currentDisplays(),
                              m_services.displayWatcher.displays(), same);
}

void AppController::deskSettled(const QString &configID, const std::vector<DisplayInfo> &)
{
    if (m_ending)
        return;
    refreshPanel();
    const Layout *layout = m_layouts.layoutFor(configID);
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

void AppController::restoreNow()
{
    m_services.log.log(QStringLiteral("panel: Restore Now clicked"));
    refreshWhileSettling();
    const Layout *layout = currentLayout();
    if (!layout) {
        m_panelModel.setLastAction(QStringLiteral("No layout saved yet"));
        return;
    }
    const std::size_t count = layout->windows.size();
    m_services.log.log(QStringLiteral("restoreNow: restoring %1 windows (saved %2)")
                           .arg(count)
                           .arg(PanorelJSON::iso().string(layout->savedAt)));
    const RestoreReport report = restore(*layout);
    m_panelModel.setLastAction(
        QStringLiteral("Put back %1 of %2 windows").arg(report.restored).arg(count));
    refreshPanel();
}

void AppController::undoLastRestore()
{
    const auto report = m_engine.undoLast(m_services.prefs.alsoRestoreSizes());
    if (!report)
        return;
    m_panelModel.setLastAction(QStringLiteral("Undid restore: %1 windows").arg(report->restored));
    refreshPanel();
}

void AppController::saveLayoutNow()
{
    refreshWhileSettling();
    auto snapshot = m_snapshotter.snapshot(m_services.displayWatcher.displays());
    if (snapshot.empty())
        return;
    const std::size_t count = snapshot.size();
    saveAsLayout(std::move(snapshot));
    m_layoutAwaitsUser = false;
    m_services.log.log(QStringLiteral("hotkey: layout saved (%1 windows)").arg(count));
    refreshPanel();
}

void AppController::reloadHotKeys()
{
    const Prefs &prefs = m_services.prefs;
    reloadHotKey(HotKeyID::restore, QStringLiteral("Restore now"), prefs.restoreHotKey(),
                 &AppController::restoreNow);
    reloadHotKey(HotKeyID::saveLayout, QStringLiteral("Save layout now"), prefs.saveLayoutHotKey(),
                 &AppController::saveLayoutNow);
    reloadHotKey(HotKeyID::undo, QStringLiteral("Undo last restore"), prefs.undoHotKey(),
                 &AppController::undoLastRestore);
}

void AppController::reloadHotKey(const QString &id, const QString &name,
                                 const std::optional<HotKeyCombo> &combo,
                                 void (AppController::*action)())
{
    HotKeyCenter &keys = m_services.hotKeys;
    if (!combo) {
        keys.unregister(id);
        return;
    }
    if (!keys.registerHotKey(id, name, *combo, [this, action] { (this->*action)(); }))
        m_services.log.log(QStringLiteral("hotkey: %1 is taken, \"%2\" has no key")
                               .arg(m_services.platform.hotKeys().text(*combo), name));
}

void AppController::refreshPanel()
{
    const DisplayWatcher &watcher = m_services.displayWatcher;
    m_panelModel.setHasPermission(hasAccessibility());
    m_panelModel.setDeskName(m_layouts.deskName(watcher.configID()));
    m_panelModel.setDisplays(watcher.displays());
    const Layout *layout = currentLayout();
    m_panelModel.setWindowCount(layout ? qint64(layout->windows.size()) : 0);
    m_panelModel.setScenes(m_scenes.scenesFor(watcher.configID()));
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
    return m_layouts.layoutFor(m_services.displayWatcher.configID());
}

RestoreReport AppController::restore(const Layout &layout)
{
    RestoreReport report = m_engine.apply(layout, m_services.prefs.alsoRestoreSizes());
    m_layoutAwaitsUser = false;
    m_usage.record(UsageEvents::Restore{report.restored});
    return report;
}

void AppController::saveAsLayout(std::vector<WindowRecord> windows)
{
    const DisplayWatcher &watcher = m_services.displayWatcher;
    Layout layout;
    layout.configID = watcher.configID();
    layout.name = m_layouts.deskName(watcher.configID());
    layout.layoutName = QStringLiteral("Default");
    layout.savedAt = m_services.clock.now();
    layout.displays = watcher.displays();
    layout.windows = std::move(windows);
    m_layouts.saveLearned(std::move(layout));
}

} // namespace Panorel
