#pragma once

#include "PanorelPorts/ProcessIdentifier.h"

#include <QString>

#include <optional>
#include <vector>

namespace Panorel {

enum class ActivationPolicy {
    Regular,    ///< an ordinary application with windows of its own
    Accessory,  ///< only a menu, a panel or a tray icon
    Prohibited, ///< nothing on the screen
};

struct RunningApplication {
    ProcessIdentifier pid = 0;
    ActivationPolicy policy = ActivationPolicy::Regular;
    std::optional<QString> bundleID;      ///< bundle identifier, or desktop-file id on X11
    std::optional<QString> localizedName; ///< what the user calls it
};

/// The applications of the user's session.
class WorkspacePort {
public:
    virtual ~WorkspacePort() = default;

    /// In an order that does not change while the same applications run.
    virtual std::vector<RunningApplication> runningApplications() = 0;

    /// Under which this program's own windows would be listed.
    virtual ProcessIdentifier ownProcessIdentifier() const = 0;
};

} // namespace Panorel
