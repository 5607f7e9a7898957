#pragma once

#include "PanorelX11/DesktopPicture/PictureSetter.h"

namespace Panorel::X11 {

/// The picture of every desktop and activity of Plasma, through its scripting.
class PlasmaPicture final : public PictureSetter {
public:
    void set(const PictureFile &picture) override;
};

} // namespace Panorel::X11
