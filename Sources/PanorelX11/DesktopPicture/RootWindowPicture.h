#pragma once

#include "PanorelX11/DesktopPicture/PictureSetter.h"

namespace Panorel::X11 {

/// The picture as the root window's background, for a window manager without a desktop of its own.
/// Covers each monitor with the picture's middle. Announced in the customary properties, so that
/// programs that imitate transparency find it; outlives this program. On a screen with other than
/// 8 bits for each of red, green and blue nothing is set.
class RootWindowPicture final : public PictureSetter {
public:
    void set(const PictureFile &picture) override;
};

} // namespace Panorel::X11
