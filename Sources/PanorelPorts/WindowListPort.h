#pragma once

#include "PanorelCore/Geometry.h"
#include "PanorelPorts/ProcessIdentifier.h"

#include <optional>
#include <vector>

namespace Panorel {

/// One window that is on the screen; absent: the platform did not say, or not in that type.
struct WindowListEntry {
    std::optional<std::int64_t> layer; ///< 0 for ordinary windows; docks, menus and so on differ
    std::optional<ProcessIdentifier> ownerPID;
    std::optional<Rect> bounds;  ///< global top-left space; may differ by rounding from AX frames
    std::optional<double> alpha; ///< 0 is invisible
};

/// What the window server shows. On macOS the current Space; on X11 all desktops together.
/// Minimised and hidden windows are not on it.
class WindowListPort {
public:
    virtual ~WindowListPort() = default;

    /// Front to back. Absent where the list can't be read.
    virtual std::optional<std::vector<WindowListEntry>> onScreenWindows() = 0;
};

} // namespace Panorel
