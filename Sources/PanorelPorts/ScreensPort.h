#pragma once

#include "PanorelCore/Geometry.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace Panorel {

using DisplayNumber = std::uint32_t;

/// One screen. Unlike everywhere else, the frames are in the bottom-left-origin space: y grows
/// upwards from the bottom of the primary screen.
struct Screen {
    std::optional<DisplayNumber> displayNumber; ///< absent: it can't be told which display it is
    Rect frame;
    Rect visibleFrame; ///< what panels, docks and menu bars leave of the frame
    QString localizedName;
};

struct DisplayIdentity {
    std::optional<QString> uuid; ///< stable for this display on this computer
    std::uint32_t vendorNumber = 0;
    std::uint32_t modelNumber = 0;
    std::uint32_t serialNumber = 0; ///< 0 where the display has none
    bool isBuiltin = false;         ///< the computer's own panel
};

/// The connected displays.
class ScreensPort {
public:
    virtual ~ScreensPort() = default;

    /// The primary screen, in the usual case first, has its frame's origin at (0, 0). Empty while
    /// no display is connected or none can be read.
    virtual std::vector<Screen> screens() = 0;

    /// The same, but the visible frames may be the whole ones: for who asks often, where to find
    /// out about panels is expensive.
    virtual std::vector<Screen> screensIgnoringPanels() { return screens(); }

    /// Of a number that screens() gave. All values zero and absent for a display that has left.
    virtual DisplayIdentity identity(DisplayNumber display) = 0;

    /// `changed` is called on the main thread, once or many times, whenever a display comes, goes,
    /// moves or changes its mode. One callback; a second call replaces it, an empty one removes it.
    virtual void setChangeCallback(std::function<void()> changed) = 0;
};

} // namespace Panorel
