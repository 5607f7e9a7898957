#include "PanorelEngine/Windows/WindowSnapshotter.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace Panorel {

namespace {

constexpr double minimumSide = 40;
/// The window server and the accessibility interface round differently.
constexpr double joinTolerance = 3.0;

/// A window that the window server shows.
struct CGEntry {
    Rect bounds;
    qint64 order; ///< its place in the whole list, 0 the frontmost
};

using Entries = std::vector<CGEntry>;

/// By application, each front to back.
std::unordered_map<ProcessIdentifier, Entries>
ordinaryEntries(const std::vector<WindowListEntry> &list, ProcessIdentifier ownPID)
{
    std::unordered_map<ProcessIdentifier, Entries> kept;
    qint64 order = -1;
    for (const WindowListEntry &entry : list) {
        ++order; // counts those that are dropped as well
        const bool ordinary = entry.layer == 0 && entry.ownerPID && *entry.ownerPID != ownPID;
        const bool large = entry.bounds && entry.bounds->width >= minimumSide
                           && entry.bounds->height >= minimumSide;
        const bool visible = !entry.alpha || *entry.alpha > 0;
        if (ordinary && large && visible)
            kept[*entry.ownerPID].push_back({*entry.bounds, order});
    }
    return kept;
}

bool agree(const Rect &a, const Rect &b)
{
    return std::abs(a.minX() - b.minX()) <= joinTolerance
           && std::abs(a.minY() - b.minY()) <= joinTolerance
           && std::abs(a.width - b.width) <= joinTolerance
           && std::abs(a.height - b.height) <= joinTolerance;
}

const CGEntry *entryOf(const AXWindow &window, const Entries &entries)
{
    const auto found = std::ranges::find_if(
        entries, [&](const CGEntry &entry) { return agree(entry.bounds, window.frame()); });
    return found == entries.end() ? nullptr : &*found;
}

QString displayOf(const Rect &frame, const std::vector<DisplayInfo> &displays)
{
    if (displays.empty())
        return {};
    // max_element gives the first of equals, as equal overlaps should go to the earlier display.
    return std::ranges::max_element(
               displays, {},
               [&](const DisplayInfo &display) { return frame.intersection(display.frame).area(); })
        ->uuid;
}

bool hasOrdinaryWindows(const RunningApplication &application)
{
    return application.policy == ActivationPolicy::Regular && application.bundleID;
}

} // namespace

WindowSnapshotter::WindowSnapshotter(AccessibilityPort &accessibility, WindowListPort &windowList,
                                     WorkspacePort &workspace)
    : m_accessibility(accessibility), m_windowList(windowList), m_workspace(workspace)
{}

std::vector<WindowRecord> WindowSnapshotter::snapshot(const std::vector<DisplayInfo> &displays)
{
    const auto list = m_windowList.onScreenWindows();
    if (!list)
        return {};
    const auto entries = ordinaryEntries(*list, m_workspace.ownProcessIdentifier());

    std::vector<WindowRecord> records;
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        const auto onScreen = entries.find(application.pid);
        if (onScreen == entries.end() || !hasOrdinaryWindows(application))
            continue;
        for (const AXWindow &window : AXWindow::windows(m_accessibility, application.pid)) {
            if (window.isMinimized() || window.isFullScreen())
                continue;
            const CGEntry *entry = entryOf(window, onScreen->second);
            if (!entry)
                continue;
            records.push_back({application.localizedName.value_or(*application.bundleID),
                               *application.bundleID, window.title(),
                               displayOf(window.frame(), displays), window.frame(), entry->order});
        }
    }

    std::ranges::stable_sort(records, {}, &WindowRecord::zOrder);
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i].zOrder = qint64(i);
    return records;
}

std::vector<WindowSnapshotter::Live>
WindowSnapshotter::liveWindows(const std::optional<std::set<QString>> &bundleIDs)
{
    std::vector<Live> found;
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        if (!hasOrdinaryWindows(application))
            continue;
        if (bundleIDs && !bundleIDs->contains(*application.bundleID))
            continue;
        for (const AXWindow &window : AXWindow::windows(m_accessibility, application.pid)) {
            if (window.isMinimized())
                continue;
            const LiveWindow live{qint64(found.size()), *application.bundleID, window.title(),
                                  window.frame()};
            found.push_back({window, live});
        }
    }
    return found;
}

} // namespace Panorel
