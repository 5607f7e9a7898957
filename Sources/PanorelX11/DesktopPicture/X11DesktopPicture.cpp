#include "PanorelX11/DesktopPicture/X11DesktopPicture.h"

namespace Panorel::X11 {

void X11DesktopPicture::setDesktopPicture(const QString &) {}

} // namespace Panorel::X11
