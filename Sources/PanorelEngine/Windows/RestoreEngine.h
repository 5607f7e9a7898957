#pragma once

#include "PanorelCore/Matching/RestoreReport.h"
#include "PanorelCore/Records/Models.h"
#include "PanorelEngine/Windows/RestorePlan.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"

#include <optional>
#include <vector>

namespace Panorel {

class AppLog;
class AppRuleStore;

/// Puts windows back where a layout says, frontmost last, and remembers the arrangement it found
/// so that the restore can be undone. Problems become counts and notes of the report.
///
/// Every move is sent before the first frame is read back, because on X11 a move takes its time
/// and so all windows take it together. A window gets one move, one read-back and at most one
/// raise; frames are applied as saved even where they lie off the displays.
class RestoreEngine {
public:
    /// All of them must outlive the engine.
    RestoreEngine(AppRuleStore &rules, WindowSnapshotter &snapshotter,
                  AccessibilityPort &accessibility, AppLog &log, const Clock &clock);

    /// Restores the positions, and the sizes where asked for here or by an application's rule.
    RestoreReport apply(const Layout &layout, bool alsoRestoreSize);

    /// What apply() would do with the windows there are now. Changes nothing, the undo point
    /// included, and logs nothing.
    RestorePlan plan(const Layout &layout, bool alsoRestoreSize);

    /// Absent, and nothing done, where there is nothing to undo. Undoing twice redoes.
    std::optional<RestoreReport> undoLast(bool alsoRestoreSize);

    /// The arrangement found by the last apply(); absent before the first. Lost at exit.
    const std::optional<Layout> &lastUndo() const { return m_lastUndo; }

    /// True while apply() runs: what is on the screen then is not to be learned.
    bool isRestoring() const { return m_isRestoring; }

private:
    /// What became of one saved window, or of a whole group that is not attempted.
    struct Outcome {
        const WindowRecord *record = nullptr;
        std::optional<AXWindow> moved; ///< absent: skipped
        qint64 skippedWindows = 0;
        QString skippedNote;
    };
    /// The saved windows of one application, and those it has now.
    struct Group {
        std::vector<WindowRecord> records;
        std::vector<LiveWindow> live;  ///< empty for a group that is skipped
        std::vector<AXWindow> windows; ///< of each in `live`
        bool setsSize = false;
        QString skipped; ///< why all of it is left alone; empty: it is not
    };

    void captureUndoPoint(const Layout &layout);
    std::vector<Group> readGroups(const Layout &layout, bool alsoRestoreSize);
    void sendGroup(const Group &group, std::vector<Outcome> &outcomes);
    void raiseInOrder(std::vector<std::pair<qint64, WindowElementRef>> raiseList);
    void logReport(const RestoreReport &report);

    AppRuleStore &m_rules;
    WindowSnapshotter &m_snapshotter;
    AccessibilityPort &m_accessibility;
    AppLog &m_log;
    const Clock &m_clock;
    std::optional<Layout> m_lastUndo;
    bool m_isRestoring = false;
};

} // namespace Panorel
