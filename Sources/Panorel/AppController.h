#pragma once

#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelEngine/HotKeys/HotKeyCenter.h"
#include "PanorelEngine/Windows/PermissionCenter.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "PanorelPorts/Platform.h"
#include "PanorelPorts/Scheduler.h"

#include <memory>

namespace Panorel {

class AppLog;
class PanelModel;
class Prefs;

/// What AppController works with. All of it must outlive the controller.
struct AppServices {
    Platform &platform;
    DisplayWatcher &displayWatcher;
    HotKeyCenter &hotKeys;
    Prefs &prefs;
    Scheduler &scheduler;
    AppLog &log;
    const Clock &clock;
};

/// Ties the application together: owns the stores and engines, learns the desk every 90 seconds,
/// restores it when the displays have settled and carries out the user's actions. No action
/// reports an error; a short result goes to the panel. Main thread only.
class AppController {
public:
    /// Starts everything: watches the displays, learns once at once, fills the panel.
    AppController(PanelModel &panelModel, const AppServices &services);
    ~AppController();

    /// Remembers the desk as it is now, unless what is on the screen may not be the user's doing:
    /// while a restore runs or displays settle, when none is connected, when the program ends, or
    /// after a change whose restore was left to the user (see deskSettled()).
    void learn();

    /// Puts the desk's layout back if the user wants that done automatically. If not, learning
    /// waits until the user restores or saves, or the displays settle again: the next pass would
    /// overwrite the very layout that "Restore Now" is for.
    void deskSettled(const QString &configID, const std::vector<DisplayInfo> &displays);

    void restoreNow();
    void undoLastRestore();

    /// Saves the desk as it is, also where learning would wait.
    void saveLayoutNow();

    /// Registers the global keys anew, as the preferences have them now.
    void reloadHotKeys();

    /// Copies the current state into the panel's model, all but the last action.
    void refreshPanel();

    /// The session or the program is about to end: windows that close now are not the user's
    /// arrangement. Nothing is learned or restored from here on. Nobody says when the user calls a
    /// logout off, so after ten minutes the session counts as going on.
    void prepareToEnd();

private:
    void installPanelActions();
    void reloadHotKey(const QString &id, const QString &name,
                      const std::optional<HotKeyCombo> &combo, void (AppController::*action)());
    bool hasAccessibility();
    bool mayLearn() const;
    void refreshWhileSettling();
    bool displaysAreCurrent() const;
    void saveAsLayout(std::vector<WindowRecord> windows);
    const Layout *currentLayout() const;
    RestoreReport restore(const Layout &layout);

    PanelModel &m_panelModel;
    AppServices m_services;

    LayoutStore m_layouts;
    SceneStore m_scenes;
    UsageStore m_usage;
    AppRuleStore m_rules;

    PermissionCenter m_permission;
    WindowSnapshotter m_snapshotter;
    RestoreEngine m_engine;

    std::optional<bool> m_loggedPermission;
    std::unique_ptr<ScheduledTask> m_ending; ///< set while the end is near; then it is over
    bool m_layoutAwaitsUser = false;         ///< the desk came back and was not restored
    std::unique_ptr<ScheduledTask> m_learnTimer;
};

} // namespace Panorel
