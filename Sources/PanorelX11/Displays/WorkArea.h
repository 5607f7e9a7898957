#pragma once

#include "PanorelCore/Geometry.h"
#include "PanorelX11/Connection/XConnection.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Panorel::X11 {

/// The space that one client reserves at one edge of the root window, in pixels.
struct Strut {
    enum class Edge { Left, Right, Top, Bottom };

    Edge edge = Edge::Left;
    double thickness = 0; ///< counted from the root window's edge, not from the monitor's
    /// The first and the last pixel, both included, along the edge: y for left and right, x for
    /// top and bottom.
    double first = 0;
    double last = 0;

    bool operator==(const Strut &) const = default;
};

/// What the struts leave of a monitor; both rectangles in root coordinates (origin top left, y
/// downwards, pixels).
///
/// A strut counts where the line it reserves up to lies inside the monitor: one that would cover
/// the whole of it belongs to a panel on the monitor behind. Struts that leave nothing are
/// ignored altogether.
Rect workArea(const Rect &monitor, const std::vector<Strut> &struts, Size rootSize);

/// The struts in the values of _NET_WM_STRUT_PARTIAL (twelve) or _NET_WM_STRUT (four); none for
/// any other number of values.
std::vector<Strut> strutsFromValues(const std::vector<std::uint32_t> &values);

/// The struts of all managed windows, in two round trips.
std::vector<Strut> readStruts(const XConnection &connection);

/// As it is now: the size that the connection's set-up names is that of the session's start.
/// Absent when the server is gone.
std::optional<Size> readRootSize(const XConnection &connection);

} // namespace Panorel::X11
