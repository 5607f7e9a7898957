#include "PanorelX11/Windows/FrameGeometry.h"

#include <xcb/xproto.h>

#include <algorithm>
#include <cmath>

namespace Panorel::X11 {

namespace {

constexpr std::uint32_t widestBorder = 4096;

PixelRect grown(const PixelRect &rect, const Extents &by)
{
    return {rect.x - by.left, rect.y - by.top, rect.width + by.left + by.right,
            rect.height + by.top + by.bottom};
}

PixelRect shrunk(const PixelRect &rect, const Extents &by)
{
    return {rect.x + by.left, rect.y + by.top, rect.width - by.left - by.right,
            rect.height - by.top - by.bottom};
}

int bounded(double value, int lowest, int highest)
{
    if (std::isnan(value))
        return lowest > 0 ? lowest : 0;
    return int(std::lround(std::clamp(value, double(lowest), double(highest))));
}

} // namespace

PixelRect FrameGeometry::visibleFrame() const
{
    return shadow ? shrunk(client, *shadow) : grown(client, decorations);
}

PixelRect FrameGeometry::clientFor(const PixelRect &visibleFrame) const
{
    PixelRect result = shadow ? grown(visibleFrame, *shadow) : shrunk(visibleFrame, decorations);
    result.width = std::max(result.width, 1);
    result.height = std::max(result.height, 1);
    return result;
}

std::optional<Extents> extentsFromValues(const std::vector<std::uint32_t> &values)
{
    if (values.size() != 4 || std::ranges::max(values) > widestBorder)
        return std::nullopt;
    return Extents{int(values[0]), int(values[1]), int(values[2]), int(values[3])};
}

std::optional<Extents> shadowFromValues(const std::vector<std::uint32_t> &values,
                                        const PixelRect &client)
{
    const auto shadow = extentsFromValues(values);
    if (!shadow || shadow->left + shadow->right >= client.width
        || shadow->top + shadow->bottom >= client.height)
        return std::nullopt;
    return shadow;
}

PixelRect nearestPixels(const Rect &rect)
{
    return {bounded(rect.x, INT16_MIN, INT16_MAX), bounded(rect.y, INT16_MIN, INT16_MAX),
            bounded(rect.width, 1, INT16_MAX), bounded(rect.height, 1, INT16_MAX)};
}

Point requestedOrigin(const PixelRect &client, const Extents &decorations, std::uint32_t gravity)
{
    if (gravity == XCB_GRAVITY_STATIC)
        return {double(client.x), double(client.y)};
    // The gravities from north west to south east count three columns in three rows.
    if (gravity < XCB_GRAVITY_NORTH_WEST || gravity > XCB_GRAVITY_SOUTH_EAST)
        gravity = XCB_GRAVITY_NORTH_WEST;
    const int column = int(gravity - XCB_GRAVITY_NORTH_WEST) % 3;
    const int row = int(gravity - XCB_GRAVITY_NORTH_WEST) / 3;
    const int besides = decorations.left + decorations.right;
    const int aboveAndBelow = decorations.top + decorations.bottom;
    return {double(client.x - decorations.left + besides * column / 2),
            double(client.y - decorations.top + aboveAndBelow * row / 2)};
}

PixelRect movedInto(const Rect &area, const PixelRect &rect)
{
    PixelRect moved = rect;
    moved.width = std::min(moved.width, int(area.width));
    moved.height = std::min(moved.height, int(area.height));
    moved.x = std::clamp(moved.x, int(area.minX()), int(area.maxX()) - moved.width);
    moved.y = std::clamp(moved.y, int(area.minY()), int(area.maxY()) - moved.height);
    return moved;
}

} // namespace Panorel::X11
