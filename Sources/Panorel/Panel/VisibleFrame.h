#pragma once

#include "PanorelCore/Records/Models.h"

#include <QRect>

namespace Panorel {

/// What panels and docks leave of a screen, in Qt's coordinates. Those have the displays' origins
/// and, where windows are drawn larger, fewer and larger units than the displays have pixels.
/// The whole screen where no display has its origin.
QRect visibleFrameOf(const QRect &screen, const std::vector<DisplayInfo> &displays);

} // namespace Panorel
