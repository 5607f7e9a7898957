#pragma once

#include <QString>

namespace Panorel {

/// The picture behind all windows.
class DesktopPicturePort {
public:
    virtual ~DesktopPicturePort() = default;

    /// Shows the picture on every display, in the way of fitting that the user has set. A file
    /// that is missing or no picture leaves everything as it is; a display that fails is left out.
    virtual void setDesktopPicture(const QString &path) = 0;
};

} // namespace Panorel
