#pragma once

#include <QIcon>

namespace Panorel {

/// The program's own icon, for the tray and for windows: in colour, readable on a light and on a
/// dark tray.
QIcon appIcon();

} // namespace Panorel
