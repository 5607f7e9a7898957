#pragma once

#include "PanorelCore/Records/Models.h"
#include "PanorelPorts/AccessibilityPort.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace Panorel {

class AppLog;
class RestoreEngine;
class ScheduledTask;
class Scheduler;
class UsageStore;
class WindowSnapshotter;
class WorkspacePort;

/// Tucks the whole desk away and brings it back: every ordinary application is hidden, and on the
/// way back the same ones are unhidden and their windows put where they were, in the same order
/// and with the focus where it was. A window that is not captured, a full-screen one for
/// instance, is hidden and comes back as the platform has it.
///
/// Nothing is stored: after the program ends the applications stay hidden until the user brings
/// them back. Main thread only.
class StashController {
public:
    /// `learnedLayout` gives a desk's layout, null where there is none. All of them must outlive
    /// the controller; destroying it cancels a restore that is still to come.
    StashController(RestoreEngine &engine, UsageStore &usage, WindowSnapshotter &snapshotter,
                    AccessibilityPort &accessibility, WorkspacePort &workspace,
                    Scheduler &scheduler, AppLog &log, const Clock &clock,
                    std::function<const Layout *(const QString &configID)> learnedLayout);
    ~StashController();

    /// Stashes the desk, or brings it back. The windows of a desk that was stashed with other
    /// displays don't go to their old places but to those learned for the displays there are now;
    /// where nothing was learned they are not moved.
    void toggle(const std::vector<DisplayInfo> &displays, const QString &configID,
                bool alsoRestoreSize);

    /// The windows are about to be put somewhere else: those on their way back are not moved to
    /// their old places any more.
    void cancelReturn() { m_return.reset(); }

    bool isStashed() const { return m_stashed.has_value(); }

    /// True while what is on the screen is not the whole desk, so that nothing may be learned: an
    /// application that was hidden here is still so, or the windows are not yet in place. One
    /// that the user has brought back himself is forgotten by this.
    bool isDeskAway();

private:
    /// What is to come back.
    struct Arrangement {
        QString configID;
        std::optional<Layout> layout;              ///< absent: nothing to move
        std::vector<WindowElementRef> frontToBack; ///< empty: the layout's order will do
        WindowElementRef focused;                  ///< null: nothing had the focus
    };
    /// The second half of bringing it back, which waits for the windows.
    struct Return {
        Arrangement arrangement;
        bool alsoRestoreSize = false;
        std::set<ProcessIdentifier> applications;
        std::unique_ptr<ScheduledTask> task;
    };

    void stash(const std::vector<DisplayInfo> &displays, const QString &configID);
    void unstash(const QString &configID, bool alsoRestoreSize);
    Arrangement capture(const std::vector<DisplayInfo> &displays, const QString &configID);
    std::vector<WindowElementRef> elementsOf(const std::vector<WindowRecord> &records);
    void hideApplications(const std::set<ProcessIdentifier> &comingBack);
    void finishReturn();

    RestoreEngine &m_engine;
    UsageStore &m_usage;
    WindowSnapshotter &m_snapshotter;
    AccessibilityPort &m_accessibility;
    WorkspacePort &m_workspace;
    Scheduler &m_scheduler;
    AppLog &m_log;
    const Clock &m_clock;
    std::function<const Layout *(const QString &configID)> m_learnedLayout;

    std::optional<Arrangement> m_stashed;
    std::vector<QString> m_hiddenBundleIDs;
    std::set<ProcessIdentifier> m_hidden; ///< also those without a bundle identifier
    std::chrono::milliseconds m_hidingDone{0};
    std::optional<Return> m_return;
};

} // namespace Panorel
