#pragma once

#include "PanorelPorts/ScreensPort.h"

#include <vector>

namespace Panorel::X11 {

/// A part of the root window that a display shows. Frames in root coordinates: pixels, y down.
struct Monitor {
    Rect frame;
    Rect visibleFrame;
    bool isPrimary = false;
    DisplayNumber display = 0; ///< the output that stands for the monitor
    QString connector;         ///< of that output
    QString name;
};

/// The monitors as ScreensPort delivers them, in the bottom-left-origin space. Whoever turns them
/// back takes the first screen whose origin is (0, 0), or else the first screen, as primary, and
/// flips around its height; order and height are chosen so that this gives the root coordinates
/// again, also where no monitor is at the root's origin. Otherwise the primary monitor comes
/// first and the others follow by connector. Displays that show the very same part of the root
/// are one screen.
std::vector<Screen> screenList(std::vector<Monitor> monitors);

} // namespace Panorel::X11
