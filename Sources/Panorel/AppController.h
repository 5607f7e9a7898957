#pragma once

#include "Panorel/AppServices.h"
#include "Panorel/DeskLearner.h"
#include "Panorel/GlobalKeys.h"
#include "Panorel/ProgramStores.h"
#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelEngine/HotKeys/HotKeyCenter.h"
#include "PanorelEngine/Launch/LaunchPlacement.h"
#include "PanorelEngine/Scenes/SceneApplier.h"
#include "PanorelEngine/Stash/StashController.h"
#include "PanorelEngine/Triggers/CalendarTriggerMonitor.h"
#include "PanorelEngine/Triggers/TimeTriggerScheduler.h"
#include "PanorelEngine/Windows/PermissionCenter.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "PanorelPorts/Platform.h"
#include "PanorelPorts/Scheduler.h"

#include <memory>

namespace Panorel {

class PanelModel;

/// Ties the application together: owns the stores and engines, learns the desk every 90 seconds,
/// restores it when the displays have settled and carries out the user's actions, whether they
/// come from the panel, a key or a trigger. No action reports an error; a short result goes to the
/// panel. Main thread only.
class AppController {
public:
    /// Starts everything: watches the displays, learns once at once, fills the panel.
    AppController(PanelModel &panelModel, const AppServices &services);
    ~AppController();

    /// Remembers the desk as it is now, unless what is on the screen may not be the user's doing:
    /// while a restore runs or displays settle, when none is connected, while the desk is stashed
    /// away, when the program ends, or after a change whose restore was left to the user (see
    /// deskSettled()).
    void learn();

    /// Puts the desk's layout back if the user wants that done automatically. If not, learning
    /// waits until the user restores or saves, or the displays settle again: the next pass would
    /// overwrite the very layout that "Restore Now" is for.
    void deskSettled(const QString &configID, const std::vector<DisplayInfo> &displays);

    /// Absent where the desk has no layout.
    std::optional<RestoreReport> restoreNow();
    /// Absent where there is nothing to undo.
    std::optional<RestoreReport> undoLastRestore();

    /// Saves the desk as it is, also where learning would wait. Returns how many windows; with none
    /// nothing is saved.
    std::size_t saveLayoutNow();

    /// Hides all windows, or brings back what was hidden.
    void toggleStash();
    bool isStashed() const { return m_stash.isStashed(); }

    /// Absent, and nothing done, for a scene that does not exist any more.
    std::optional<RestoreReport> applyScene(const QUuid &id);

    /// What restoreNow() would do at this moment; absent where the desk has no layout. Changes
    /// nothing and logs nothing.
    std::optional<RestorePlan> planRestore();
    /// The same for applyScene().
    std::optional<ScenePlan> planScene(const QUuid &id);

    /// Under a name made from the number of the desk's scenes.
    void saveCurrentAsScene();

    /// Stored and shown; without options, key or picture, and possibly without windows.
    SceneRecord addSceneFromCurrentWindows(const QString &name);

    /// Drops what was learned of the desk; its scenes stay.
    void forgetDesk(const QString &configID);

    /// From the preferences: how long displays must be quiet counts from their next change.
    void takeSettleSeconds();

    /// Registers the global keys anew, as the preferences and the scenes have them now.
    void reloadHotKeys() { m_keys.reload(); }
    /// Whether another program has the key of that keyID().
    bool isHotKeyRefused(const QString &keyID) const { return m_keys.isRefused(keyID); }
    /// None of them is in force until reloadHotKeys().
    void suspendHotKeys() { m_keys.suspend(); }

    /// Copies the current state into the panel's model, all but the last action.
    void refreshPanel();

    /// The session or the program is about to end: windows that close now are not the user's
    /// arrangement. Nothing is learned or restored from here on. Nobody says when the user calls a
    /// logout off, so after ten minutes the session counts as going on.
    void prepareToEnd();

    /// Everything that is kept, to be written to a file.
    SavedState savedState() const { return m_stores.state(m_services.prefs); }

    /// Takes over a state from elsewhere: keys, triggers and what is on show follow. The desk's new
    /// layout is not learned over before the user has had it restored. False where a file could
    /// not be written, which the log says.
    bool replaceState(const SavedState &state);

    const ProgramStores &stores() const { return m_stores; }

    // What the windows show and change. Who changes a store calls what depends on it.
    LayoutStore &layouts() { return m_stores.layouts; }
    SceneStore &scenes() { return m_stores.scenes; }
    const UsageStore &usage() const { return m_stores.usage; }
    AppRuleStore &rules() { return m_stores.rules; }
    TriggerStore &triggers() { return m_stores.triggers; }
    TimeTriggerScheduler &timeTriggers() { return m_timeTriggers; }
    CalendarTriggerMonitor &calendarMonitor() { return m_calendarMonitor; }
    PermissionCenter &permission() { return m_permission; }

private:
    void installPanelActions();
    void perform(FixedAction action);
    bool hasAccessibility();
    bool mayLearn();
    std::optional<SceneRecord> sceneAsApplied(const QUuid &id) const;
    void refreshWhileSettling();
    const Layout *currentLayout() const;
    RestoreReport restore(const Layout &layout);

    PanelModel &m_panelModel;
    AppServices m_services;

    ProgramStores m_stores;

    PermissionCenter m_permission;
    WindowSnapshotter m_snapshotter;
    RestoreEngine m_engine;
    DeskLearner m_learner;
    SceneApplier m_sceneApplier;
    StashController m_stash;
    LaunchPlacement m_launchPlacement;
    TimeTriggerScheduler m_timeTriggers;
    CalendarTriggerMonitor m_calendarMonitor;
    GlobalKeys m_keys;

    std::optional<bool> m_loggedPermission;
    std::unique_ptr<ScheduledTask> m_ending; ///< set while the end is near; then it is over
    bool m_layoutAwaitsUser = false;         ///< the desk came back and was not restored
    std::unique_ptr<ScheduledTask> m_learnTimer;
};

} // namespace Panorel
