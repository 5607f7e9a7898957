#pragma once

#include "PanorelCore/Geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Panorel::X11 {

/// Widths of the four sides around, or within, a window, in pixels.
struct Extents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    bool operator==(const Extents &) const = default;
};

/// A rectangle of whole pixels in root coordinates, origin top left.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const PixelRect &) const = default;
    Rect toRect() const { return {double(x), double(y), double(width), double(height)}; }
};

/// How a window's client rectangle, the one that the protocol speaks of, relates to its visible
/// frame, the one that the user sees and that is learned.
struct FrameGeometry {
    PixelRect client;
    Extents decorations;           ///< around the client; drawn by the window manager
    std::optional<Extents> shadow; ///< within the client; set where the client decorates itself

    bool operator==(const FrameGeometry &) const = default;

    bool decoratesItself() const { return shadow.has_value(); }

    /// Of a self-decorated window the client without its shadow, of any other the client with its
    /// decorations.
    PixelRect visibleFrame() const;

    /// The inverse, with the extents of now. At least 1 x 1.
    PixelRect clientFor(const PixelRect &visibleFrame) const;
};

/// Left, right, top, bottom as _NET_FRAME_EXTENTS and _GTK_FRAME_EXTENTS hold them. Absent where
/// there are not four or one is not the width of any border.
std::optional<Extents> extentsFromValues(const std::vector<std::uint32_t> &values);

/// The shadow of a client in the values of _GTK_FRAME_EXTENTS. One that leaves nothing of the
/// client is none.
std::optional<Extents> shadowFromValues(const std::vector<std::uint32_t> &values,
                                        const PixelRect &client);

/// Nearest pixels, within what the protocol can say: positions of 16 bits, sizes from 1.
PixelRect nearestPixels(const Rect &rect);

/// What to ask for in a ConfigureWindow for the client to come to `client`, given the gravity of
/// its size hints: by that the window manager tells which point of the frame is meant.
Point requestedOrigin(const PixelRect &client, const Extents &decorations, std::uint32_t gravity);

/// Moves the rectangle into the area by the shortest way and cuts it to the area's size.
PixelRect movedInto(const Rect &area, const PixelRect &rect);

} // namespace Panorel::X11
