#pragma once

namespace Panorel {

/// Looks for new versions of the program and installs them, with windows of its own.
class UpdaterPort {
public:
    virtual ~UpdaterPort() = default;

    virtual bool automaticallyChecksForUpdates() = 0;

    /// Kept by the updater itself.
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;

    /// At once, on the user's demand: says also that there is nothing new.
    virtual void checkForUpdates() = 0;
};

} // namespace Panorel
