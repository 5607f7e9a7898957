#include "PanorelX11/DesktopPicture/X11DesktopPicture.h"

#include "PanorelX11/DesktopPicture/PictureWay.h"

namespace Panorel::X11 {

void X11DesktopPicture::setDesktopPicture(const QString &path)
{
    const auto picture = PictureFile::at(path);
    if (!picture)
        return;
    if (!m_setter)
        m_setter = makePictureSetter(pictureWay(qEnvironmentVariable("XDG_CURRENT_DESKTOP")));
    m_setter->set(*picture);
}

} // namespace Panorel::X11
