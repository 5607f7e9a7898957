#include "PanorelEngine/Stash/StashController.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "PanorelPorts/Scheduler.h"

#include <algorithm>

namespace Panorel {

namespace {

/// Lets the applications show their windows before they are moved.
constexpr std::chrono::milliseconds returnDelay(400);
/// hide() may return before it is done: until then an application doesn't count as brought back.
constexpr std::chrono::milliseconds hidingTime(1000);

} // namespace

StashController::StashController(
    RestoreEngine &engine, UsageStore &usage, WindowSnapshotter &snapshotter,
    AccessibilityPort &accessibility, WorkspacePort &workspace, Scheduler &scheduler, AppLog &log,
    const Clock &clock, std::function<const Layout *(const QString &configID)> learnedLayout)
    : m_engine(engine), m_usage(usage), m_snapshotter(snapshotter), m_accessibility(accessibility),
      m_workspace(workspace), m_scheduler(scheduler), m_log(log), m_clock(clock),
      m_learnedLayout(std::move(learnedLayout))
{}

StashController::~StashController() = default;

void StashController::toggle(const std::vector<DisplayInfo> &displays, const QString &configID,
                             bool alsoRestoreSize)
{
    if (isStashed())
        unstash(configID, alsoRestoreSize);
    else
        stash(displays, configID);
}

void StashController::stash(const std::vector<DisplayInfo> &displays, const QString &configID)
{
    // Windows that are still on their way back are not where they belong, so what they were going
    // back to holds.
    std::optional<Return> returning = std::exchange(m_return, std::nullopt);
    m_stashed = returning ? std::move(returning->arrangement) : capture(displays, configID);
    hideApplications(returning ? returning->applications : std::set<ProcessIdentifier>{});
    m_usage.record(UsageEvents::Stash{});
    m_log.log(QStringLiteral("stash: hid %1 apps").arg(m_hiddenBundleIDs.size()));
}

StashController::Arrangement StashController::capture(const std::vector<DisplayInfo> &displays,
                                                      const QString &configID)
{
    Layout layout;
    layout.configID = configID;
    layout.name = layout.layoutName = QStringLiteral("Stash");
    layout.savedAt = m_clock.now();
    layout.displays = displays;
    layout.windows = m_snapshotter.snapshot(displays);
    auto frontToBack = elementsOf(layout.windows);
    return {configID, std::move(layout), std::move(frontToBack), m_accessibility.focusedWindow()};
}

/// Read at the same moment, so a record and its window agree in everything.
std::vector<WindowElementRef> StashController::elementsOf(const std::vector<WindowRecord> &records)
{
    std::map<QString, std::vector<AXWindow>> byApplication;
    for (const auto &[window, live] : m_snapshotter.liveWindows())
        byApplication[live.bundleID].push_back(window);
    std::vector<WindowElementRef> elements;
    for (const WindowRecord &record : records) {
        std::vector<AXWindow> &windows = byApplication[record.bundleID];
        const auto found = std::ranges::find_if(windows, [&](const AXWindow &window) {
            return window.title() == record.title && window.frame() == record.frame;
        });
        if (found == windows.end())
            continue;
        elements.push_back(found->element());
        windows.erase(found);
    }
    return elements;
}

/// `comingBack`: still hidden, perhaps, but not by the user.
void StashController::hideApplications(const std::set<ProcessIdentifier> &comingBack)
{
    m_hiddenBundleIDs.clear();
    m_hidden.clear();
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        const bool isOrdinary = application.policy == ActivationPolicy::Regular
                                && application.pid != m_workspace.ownProcessIdentifier();
        if (!isOrdinary || (application.isHidden && !comingBack.contains(application.pid)))
            continue;
        if (application.bundleID)
            m_hiddenBundleIDs.push_back(*application.bundleID);
        m_hidden.insert(application.pid);
        m_workspace.hide(application.pid);
    }
    m_hidingDone = m_clock.steadyNow() + hidingTime;
}

void StashController::unstash(const QString &configID, bool alsoRestoreSize)
{
    Return &coming = m_return.emplace(Return{});
    coming.arrangement = *std::exchange(m_stashed, std::nullopt);
    coming.alsoRestoreSize = alsoRestoreSize;
    // A window that has the focus now is one that the user went on working in.
    if (m_accessibility.focusedWindow())
        coming.arrangement.focused.reset();
    if (coming.arrangement.configID != configID) {
        const Layout *learned = m_learnedLayout(configID);
        coming.arrangement.configID = configID;
        coming.arrangement.layout = learned ? std::optional(*learned) : std::nullopt;
        coming.arrangement.frontToBack.clear();
    }

    const std::set<QString> hidden(m_hiddenBundleIDs.begin(), m_hiddenBundleIDs.end());
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        if (!application.bundleID || !hidden.contains(*application.bundleID))
            continue;
        coming.applications.insert(application.pid);
        m_workspace.unhide(application.pid);
    }
    m_hiddenBundleIDs.clear();
    m_hidden.clear();
    coming.task = m_scheduler.runAfter(returnDelay, [this] { finishReturn(); });
    m_log.log(QStringLiteral("stash: brought desk back"));
}

void StashController::finishReturn()
{
    const Return coming = *std::exchange(m_return, std::nullopt);
    const Arrangement &arrangement = coming.arrangement;
    if (arrangement.layout) {
        const RestoreReport report = m_engine.apply(*arrangement.layout, coming.alsoRestoreSize);
        // The restore raises only what it has put in place; what it failed at or was told to
        // ignore would end up behind all that.
        const bool allRaised = report.failed == 0 && report.skipped == 0;
        if (!allRaised && !arrangement.frontToBack.empty())
            m_accessibility.raise(
                {arrangement.frontToBack.rbegin(), arrangement.frontToBack.rend()});
    }
    if (arrangement.focused)
        m_accessibility.focus(arrangement.focused);
}

bool StashController::isDeskAway()
{
    if (m_return)
        return true;
    if (m_hidden.empty() || m_clock.steadyNow() < m_hidingDone)
        return !m_hidden.empty();
    std::set<ProcessIdentifier> stillHidden;
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        if (application.isHidden && m_hidden.contains(application.pid))
            stillHidden.insert(application.pid);
    }
    m_hidden = std::move(stillHidden);
    return !m_hidden.empty();
}

} // namespace Panorel
