#pragma once

#include "PanorelPorts/DesktopPicturePort.h"

namespace Panorel::X11 {

/// The picture behind all windows, set in the way of the desktop that runs.
class X11DesktopPicture final : public DesktopPicturePort {
public:
    void setDesktopPicture(const QString &path) override;
};

} // namespace Panorel::X11
