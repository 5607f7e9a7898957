#pragma once

#include "PanorelPorts/DesktopPicturePort.h"
#include "PanorelX11/DesktopPicture/PictureSetter.h"

#include <memory>

namespace Panorel::X11 {

/// The picture behind all windows, set in the way of the desktop that runs.
class X11DesktopPicture final : public DesktopPicturePort {
public:
    void setDesktopPicture(const QString &path) override;

private:
    std::unique_ptr<PictureSetter> m_setter; ///< made when first needed
};

} // namespace Panorel::X11
