#pragma once

#include "PanorelCore/Matching/WindowMatcher.h"
#include "PanorelCore/Records/Models.h"
#include "PanorelEngine/Windows/AXWindow.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QString>

#include <optional>
#include <set>
#include <vector>

namespace Panorel {

/// Reads the desk: as records to save, or as live windows to match and move. Every call is a
/// fresh capture; without permission both are empty. Main thread only.
class WindowSnapshotter {
public:
    struct Live {
        AXWindow window;
        LiveWindow live; ///< its id is the position in the list
    };

    WindowSnapshotter(AccessibilityPort &accessibility, WindowListPort &windowList,
                      WorkspacePort &workspace);

    /// What the user sees, front to back: ordinary windows of ordinary applications, at least
    /// 40 x 40, neither minimised nor full-screen. Each is assigned to the display it overlaps
    /// most, the first where it overlaps none; `displays` are in the top-left space.
    std::vector<WindowRecord> snapshot(const std::vector<DisplayInfo> &displays);

    /// Every window that can be restored to: all of the ordinary applications but the minimised
    /// ones, on the screen or not, of any size. An absent set means every application, an empty
    /// one none.
    std::vector<Live> liveWindows(const std::optional<std::set<QString>> &bundleIDs = {});

private:
    AccessibilityPort &m_accessibility;
    WindowListPort &m_windowList;
    WorkspacePort &m_workspace;
};

} // namespace Panorel
