#pragma once

#include "PanorelPorts/ApplicationPorts.h"

namespace Panorel::Mac {

/// Locations are the paths of application bundles.
class MacLauncher final : public ApplicationLauncherPort {
public:
    std::optional<QString> locate(const QString &bundleID) override;
    void open(const QString &location) override;
};

} // namespace Panorel::Mac
