#pragma once

#include "PanorelPorts/ProcessIdentifier.h"

#include <QString>

#include <functional>
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
    bool isHidden = false;                ///< hide() or the user has taken all its windows away
};

/// The applications of the user's session.
class WorkspacePort {
public:
    virtual ~WorkspacePort() = default;

    /// In an order that does not change while the same applications run.
    virtual std::vector<RunningApplication> runningApplications() = 0;

    /// Under which this program's own windows would be listed.
    virtual ProcessIdentifier ownProcessIdentifier() const = 0;

    /// Takes the application's windows off the screen without closing or moving them. They are
    /// not minimised by it, leave the window list, and can still be moved. May return before it
    /// is done; nothing is said of an application that refuses.
    virtual void hide(ProcessIdentifier pid) = 0;

    /// Brings back what hide() took away and leaves the focus where it is; a window that was
    /// minimised before stays minimised. Where the user has brought back some of
    /// its windows himself, the rest follows. May return before it is done.
    virtual void unhide(ProcessIdentifier pid) = 0;

    /// `launched` is called on the main thread, from the event loop, for every application that
    /// is started from now on, its first window possibly there already. What runs when the
    /// callback is set is no launch. One callback; a second call replaces it, an empty one
    /// removes it.
    virtual void setLaunchCallback(std::function<void(const RunningApplication &)> launched) = 0;
};

} // namespace Panorel
