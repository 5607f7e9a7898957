#pragma once

#include "PanorelPorts/DesktopPicturePort.h"

namespace Panorel::Mac {

class MacDesktopPicture final : public DesktopPicturePort {
public:
    void setDesktopPicture(const QString &path) override;
};

} // namespace Panorel::Mac
