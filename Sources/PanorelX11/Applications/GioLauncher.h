#pragma once

#include "PanorelPorts/ApplicationPorts.h"

#include <future>
#include <vector>

namespace Panorel::X11 {

/// Installed applications by their desktop files. A location is the path of the desktop file.
///
/// What it starts gets the environment of StartEnvironment, a session of its own and no open file
/// of this program; it lives on when this program ends. An application that is started through
/// the session bus is left to the bus; without a bus its command is run, if it has one.
class GioLauncher final : public ApplicationLauncherPort {
public:
    std::optional<QString> locate(const QString &bundleID) override;

    /// Starts it on another thread: the session bus, which is asked first, may be slow.
    void open(const QString &location) override;

private:
    std::vector<std::future<void>> m_openings; ///< their end is waited for
};

} // namespace Panorel::X11
