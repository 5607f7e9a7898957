#pragma once

#include "PanorelPorts/WorkspacePort.h"

#include <memory>

namespace Panorel::Mac {

/// The workspace as AppKit tells of it. Process identifiers are process ids.
class MacWorkspace final : public WorkspacePort {
public:
    MacWorkspace();
    ~MacWorkspace() override;

    std::vector<RunningApplication> runningApplications() override;
    ProcessIdentifier ownProcessIdentifier() const override;
    void hide(ProcessIdentifier pid) override;
    void unhide(ProcessIdentifier pid) override;
    void setLaunchCallback(std::function<void(const RunningApplication &)> launched) override;

private:
    class LaunchObserver;

    std::unique_ptr<LaunchObserver> m_launchObserver; ///< null while nobody listens
};

} // namespace Panorel::Mac
