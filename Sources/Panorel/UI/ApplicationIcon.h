#pragma once

#include <QIcon>

namespace Panorel {

/// The icon of an application from the icon theme, by its identifier or the last part of it. Null
/// where the theme has none; views then draw a neutral symbol.
QIcon applicationIcon(const QString &bundleID);

} // namespace Panorel
