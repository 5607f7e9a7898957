#pragma once

#include "PanorelPorts/WorkspacePort.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/HiddenWindows.h"
#include "PanorelX11/Windows/LaunchWatch.h"

namespace Panorel::X11 {

/// The applications that have windows, by their numbers.
class X11Workspace final : public WorkspacePort {
public:
    /// All of them outlive it.
    X11Workspace(ClientRegistry &registry, HiddenWindows &hidden, LaunchWatch &launches)
        : m_registry(registry), m_hidden(hidden), m_launches(launches)
    {}

    std::vector<RunningApplication> runningApplications() override;
    ProcessIdentifier ownProcessIdentifier() const override { return ApplicationNumbers::own; }
    void hide(ProcessIdentifier pid) override { m_hidden.hide(pid); }
    void unhide(ProcessIdentifier pid) override { m_hidden.unhide(pid); }
    void setLaunchCallback(std::function<void(const RunningApplication &)> launched) override
    {
        m_launches.setCallback(std::move(launched));
    }

private:
    ClientRegistry &m_registry;
    HiddenWindows &m_hidden;
    LaunchWatch &m_launches;
};

} // namespace Panorel::X11
