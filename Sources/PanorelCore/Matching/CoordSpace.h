#pragma once

#include "PanorelCore/Geometry.h"

namespace Panorel::CoordSpace {

/// Converts between the bottom-left-origin space in which screens are reported and the
/// top-left-origin space of every stored and live frame. Its own inverse. `primaryHeight` is the
/// height of the primary display.
inline Rect flip(const Rect &rect, double primaryHeight)
{
    return {rect.minX(), primaryHeight - rect.maxY(), rect.width, rect.height};
}

} // namespace Panorel::CoordSpace
