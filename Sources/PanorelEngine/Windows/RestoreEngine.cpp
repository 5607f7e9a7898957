#include "PanorelEngine/Windows/RestoreEngine.h"

#include "PanorelCore/Files/AppLog.h"
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

using Groups = std::vector<std::vector<WindowRecord>>;

/// By application, in the order of their first windows.
Groups groupedByApplication(const std::vector<WindowRecord> &windows)
{
    Groups groups;
    std::map<QString, std::size_t> positions;
    for (const WindowRecord &record : windows) {
        const auto [entry, isNew] = positions.try_emplace(record.bundleID, groups.size());
        if (isNew)
            groups.emplace_back();
        groups[entry->second].push_back(record);
    }
    return groups;
}

std::vector<LiveWindow> liveOf(const std::vector<WindowSnapshotter::Live> &found)
{
    std::vector<LiveWindow> live;
    live.reserve(found.size());
    for (const auto &pair : found)
        live.push_back(pair.live);
    return live;
}

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

    const Groups groups = groupedByApplication(layout.windows);
    std::vector<Outcome> outcomes;
    for (const Group &group : groups)
        sendGroup(group, alsoRestoreSize, outcomes);

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

RestoreEngine::GroupMatch RestoreEngine::matchGroup(const Group &group, bool alsoRestoreSize)
{
    GroupMatch result;
    const QString &bundleID = group.front().bundleID;
    const AppRule rule = m_rules.rule(bundleID);
    if (rule.ignored) {
        result.skipped = QStringLiteral("ignored by rule");
        return result;
    }
    result.found = m_snapshotter.liveWindows(std::set<QString>{bundleID});
    if (result.found.empty()) {
        result.skipped = QStringLiteral("app not running");
        return result;
    }
    result.setsSize = alsoRestoreSize || rule.restoreSize;
    result.matches = WindowMatcher::match(group, liveOf(result.found));
    return result;
}

void RestoreEngine::sendGroup(const Group &group, bool alsoRestoreSize,
                              std::vector<Outcome> &outcomes)
{
    const GroupMatch match = matchGroup(group, alsoRestoreSize);
    if (!match.skipped.isEmpty()) {
        outcomes.push_back({nullptr,
                            {},
                            qint64(group.size()),
                            group.front().appName + QStringLiteral(", ") + match.skipped});
        return;
    }
    for (std::size_t i = 0; i < match.matches.size(); ++i) {
        const WindowRecord &record = group[i];
        if (const auto liveID = match.matches[i].liveID) {
            const AXWindow &window = match.found[std::size_t(*liveID)].window;
            window.apply(record.frame.origin(),
                         match.setsSize ? std::optional(record.frame.size()) : std::nullopt);
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
    for (const Group &group : groupedByApplication(layout.windows)) {
        const GroupMatch match = matchGroup(group, alsoRestoreSize);
        const std::vector<LiveWindow> live = liveOf(match.found);
        for (std::size_t i = 0; i < group.size(); ++i) {
            PlannedWindow &planned = plan.emplace_back();
            planned.record = group[i];
            planned.setsSize = match.setsSize;
            planned.note = match.skipped;
            if (!match.skipped.isEmpty())
                continue;
            if (const auto liveID = match.matches[i].liveID) {
                planned.live = live[std::size_t(*liveID)];
                planned.reason = WindowMatcher::reason(planned.record, *planned.live, live);
            } else {
                planned.note = windowGone;
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
        m_log.log(QStringLiteral("  ") + note);
}

} // namespace Panorel
