#pragma once

#include "PanorelX11/DesktopPicture/PictureSetter.h"

#include <QObject>

namespace Panorel::X11 {

/// The picture in Xfce's settings: of every display and workspace that they know, and of the
/// first workspace of the displays that are connected now.
class XfcePicture final : public PictureSetter {
public:
    void set(const PictureFile &picture) override;

private:
    QObject m_context; ///< an answer that comes after the end is dropped with it
};

} // namespace Panorel::X11
