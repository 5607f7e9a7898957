#pragma once

#include "PanorelPorts/ApplicationPorts.h"

namespace Panorel::X11 {

/// Installed applications by their desktop files. A location is the path of the desktop file.
class GioLauncher final : public ApplicationLauncherPort {
public:
    std::optional<QString> locate(const QString &bundleID) override;
    void open(const QString &location) override;
};

} // namespace Panorel::X11
