#pragma once

#include "PanorelCore/Geometry.h"

#include <vector>

/// The stored form of a rectangle: [[x, y], [width, height]].
namespace Panorel::FrameCodec {

std::vector<std::vector<double>> encode(const Rect &rect);

/// Throws DecodingError "frame must be [[x,y],[w,h]]", with an empty path, for any other shape.
Rect decode(const std::vector<std::vector<double>> &pairs);

} // namespace Panorel::FrameCodec
