#pragma once

#include "PanorelPorts/WorkspacePort.h"
#include "PanorelX11/Windows/ClientRegistry.h"

namespace Panorel::X11 {

/// The applications that have windows, by their numbers.
class X11Workspace final : public WorkspacePort {
public:
    /// The registry outlives it.
    explicit X11Workspace(ClientRegistry &registry) : m_registry(registry) {}

    /// Regular with a window that the task bar would show, on whatever desktop; accessory with
    /// any other.
    std::vector<RunningApplication> runningApplications() override;
    ProcessIdentifier ownProcessIdentifier() const override { return ApplicationNumbers::own; }
    void hide(ProcessIdentifier pid) override;
    void unhide(ProcessIdentifier pid) override;
    void setLaunchCallback(std::function<void(const RunningApplication &)> launched) override;

private:
    ClientRegistry &m_registry;
};

} // namespace Panorel::X11
