#pragma once

#include "PanorelX11/DesktopPicture/PictureSetter.h"

#include <memory>

namespace Panorel::X11 {

/// Who draws the picture behind all windows.
enum class PictureWay { Gnome, Cinnamon, Mate, Xfce, Plasma, RootWindow };

/// Told from XDG_CURRENT_DESKTOP, names joined by colons, the most specific first. A desktop that
/// isn't known, or none, leaves the root window to whoever paints it.
PictureWay pictureWay(const QString &currentDesktop);

std::unique_ptr<PictureSetter> makePictureSetter(PictureWay way);

} // namespace Panorel::X11
