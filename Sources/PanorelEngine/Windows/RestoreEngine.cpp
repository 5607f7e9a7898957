#include "PanorelEngine/Windows/RestoreEngine.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Matching/WindowMatcher.h"
#include "PanorelCore/Stores/AppRuleStore.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace Panorel {

namespace {

/// How far from its target a window may come to rest and still count as restored.
constexpr double positionTolerance = 5.0;

const QString windowGone = QStringLiteral("window no longer exists");

bool inPlace(const std::optional<Rect> &frame, const WindowRecord &record)
{
    return frame && std::abs(frame->x - record.frame.x) <= positionTolerance
           && std::abs(frame->y - record.frame.y) <= positionTolerance;
}

QString quotedWindow(const WindowRecord &record)
{
    return record.appName + QStringLiteral(" “") + record.title + QStringLiteral("”");
}

} // namespace

RestoreEngine::RestoreEngine(AppRuleStore &rules, WindowSnapshotter &snapshotter,
                             AccessibilityPort &accessibility, AppLog &log, const Clock &clock)
    : m_rules(rules), m_snapshotter(snapshotter), m_accessibility(accessibility), m_log(log),
      m_clock(clock)
{}

RestoreReport RestoreEngine::apply(const Layout &layout, bool alsoRestoreSize)
{
    const auto start = m_clock.steadyNow();
    const QScopedValueRollback restoring(m_isRestoring, true);
    captureUndoPoint(layout);

    const std::vector<Group> groups = readGroups(layout, alsoRestoreSize);
    std::vector<Outcome> outcomes;
    for (const Group &group : groups)
        sendGroup(group, outcomes);

    RestoreReport report;
    std::vector<std::pair<qint64, WindowElementRef>> raiseList;
    for (const Outcome &outcome : outcomes) {
        if (!outcome.moved) {
            report.skipped += outcome.skippedWindows;
            report.notes.append(QStringLiteral("skipped: ") + outcome.skippedNote);
        } else if (inPlace(outcome.moved->currentFrame(), *outcome.record)) {
            report.restored += 1;
            raiseList.emplace_back(outcome.record->zOrder, outcome.moved->element());
        } else {
            report.failed += 1;
            report.notes.append(QStringLiteral("failed: ") + quotedWindow(*outcome.record)
                                + QStringLiteral(", could not move"));
        }
    }
    raiseInOrder(std::move(raiseList));

    report.duration = std::chrono::duration<double>(m_clock.steadyNow() - start).count();
    logReport(report);
    return report;
}

std::optional<RestoreReport> RestoreEngine::undoLast(bool alsoRestoreSize)
{
    if (!m_lastUndo)
        return {};
    const Layout before = *std::exchange(m_lastUndo, std::nullopt);
    return apply(before, alsoRestoreSize);
}

void RestoreEngine::captureUndoPoint(const Layout &layout)
{
    Layout undo;
    undo.configID = layout.configID;
    undo.name = layout.name;
    undo.layoutName = QStringLiteral("Undo");
    undo.savedAt = m_clock.now();
    undo.displays = layout.displays;
    undo.windows = m_snapshotter.snapshot(layout.displays);
    m_lastUndo = std::move(undo);
}

/// In the order of the applications' first windows. All applications are read at once: each
/// reading has the platform list everything that runs.
std::vector<RestoreEngine::Group> RestoreEngine::readGroups(const Layout &layout,
                                                            bool alsoRestoreSize)
{
    std::vector<Group> groups;
    std::map<QString, std::size_t> places;
    std::set<QString> wanted;
    for (const WindowRecord &record : layout.windows) {
        const auto [entry, isNew] = places.try_emplace(record.bundleID, groups.size());
        if (isNew) {
            const AppRule rule = m_rules.rule(record.bundleID);
            Group &group = groups.emplace_back();
            group.setsSize = alsoRestoreSize || rule.restoreSize;
            if (rule.ignored)
                group.skipped = QStringLiteral("ignored by rule");
            else
                wanted.insert(record.bundleID);
        }
        groups[entry->second].records.push_back(record);
    }
    for (WindowSnapshotter::Live &each : m_snapshotter.liveWindows(wanted)) {
        Group &group = groups[places.at(each.live.bundleID)];
        each.live.id = qint64(group.live.size());
        group.live.push_back(each.live);
        group.windows.push_back(std::move(each.window));
    }
    for (Group &group : groups) {
        if (group.skipped.isEmpty() && group.live.empty())
            group.skipped = QStringLiteral("app not running");
    }
    return groups;
}

void RestoreEngine::sendGroup(const Group &group, std::vector<Outcome> &outcomes)
{
    if (!group.skipped.isEmpty()) {
        outcomes.push_back({nullptr,
                            {},
                            qint64(group.records.size()),
                            group.records.front().appName + QStringLiteral(", ") + group.skipped});
        return;
    }
    const auto matches = WindowMatcher::match(group.records, group.live);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const WindowRecord &record = group.records[i];
        if (const auto liveID = matches[i].liveID) {
            const AXWindow &window = group.windows[std::size_t(*liveID)];
            window.apply(record.frame.origin(),
                         group.setsSize ? std::optional(record.frame.size()) : std::nullopt);
            outcomes.push_back({&record, window, 0, {}});
        } else {
            outcomes.push_back(
                {&record, {}, 1, quotedWindow(record) + QStringLiteral(", ") + windowGone});
        }
    }
}

RestorePlan RestoreEngine::plan(const Layout &layout, bool alsoRestoreSize)
{
    RestorePlan plan;
    for (const Group &group : readGroups(layout, alsoRestoreSize)) {
        const auto matches = WindowMatcher::match(group.records, group.live);
        for (std::size_t i = 0; i < matches.size(); ++i) {
            PlannedWindow &planned = plan.emplace_back();
            planned.record = group.records[i];
            planned.setsSize = group.setsSize;
            if (const auto liveID = matches[i].liveID) {
                planned.live = group.live[std::size_t(*liveID)];
                planned.reason = WindowMatcher::reason(planned.record, *planned.live, group.live);
            } else {
                planned.note = group.skipped.isEmpty() ? windowGone : group.skipped;
            }
        }
    }
    return plan;
}

void RestoreEngine::raiseInOrder(std::vector<std::pair<qint64, WindowElementRef>> raiseList)
{
    std::ranges::stable_sort(raiseList, std::greater<>(),
                             [](const auto &entry) { return entry.first; });
    std::vector<WindowElementRef> backToFront;
    for (auto &entry : raiseList)
        backToFront.push_back(std::move(entry.second));
    if (!backToFront.empty())
        m_accessibility.raise(backToFront);
}

void RestoreEngine::logReport(const RestoreReport &report)
{
    m_log.log(QStringLiteral("restore report: ") + report.summary());
    for (const QString &note : report.notes)
        m_log.log(QStringLiteral("  ") + forLog(note));
}

} // namespace Panorel
