#pragma once

#include "PanorelX11/Windows/FrameGeometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Panorel::X11 {

/// What a client says about the sizes it can take, in pixels of the client rectangle.
struct SizeHints {
    int minimumWidth = 1;
    int minimumHeight = 1;
    int maximumWidth = INT16_MAX;
    int maximumHeight = INT16_MAX;
    int baseWidth = 0;
    int baseHeight = 0;
    int widthIncrement = 1;
    int heightIncrement = 1;
    std::uint32_t gravity = 1; ///< an XCB_GRAVITY; north west where the hints name none

    /// From the values of WM_NORMAL_HINTS; those that are missing or make no sense keep their
    /// defaults.
    static SizeHints fromValues(const std::vector<std::uint32_t> &values);

    /// The size that a window manager makes of the asked-for one. Aspect ratios are left out: few
    /// clients have them, and what they come to depends on the window manager.
    PixelRect constrained(PixelRect client) const;

    bool operator==(const SizeHints &) const = default;
};

} // namespace Panorel::X11
