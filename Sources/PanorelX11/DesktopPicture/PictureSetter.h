#pragma once

#include "PanorelX11/DesktopPicture/PictureFile.h"

namespace Panorel::X11 {

/// One way of showing a picture behind all windows. A failure is dropped.
class PictureSetter {
public:
    virtual ~PictureSetter() = default;

    /// May return before the picture is shown; of two calls the later one wins.
    virtual void set(const PictureFile &picture) = 0;
};

} // namespace Panorel::X11
