#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <map>

namespace Panorel {

struct WindowRecord;

/// A desktop whose every answer costs no more than its size, so that what is measured is the
/// engines' own work. The desktop of the tests looks windows up one by one.
class IndexedDesktop final : public AccessibilityPort, public WindowListPort, public WorkspacePort {
public:
    /// Shows the windows front to back, each application under a process number of its own.
    explicit IndexedDesktop(const std::vector<WindowRecord> &records);

    bool isTrusted() const override { return true; }
    bool isTrustGranted() const override { return false; }
    void promptForTrust() override {}
    std::vector<WindowAttributes> windows(ProcessIdentifier pid) override;
    void apply(const WindowElementRef &window, std::optional<Point> position,
               std::optional<Size> size) override;
    FrameReading readFrame(const WindowElementRef &window) override;
    void raise(const std::vector<WindowElementRef> &) override {}
    WindowElementRef focusedWindow() override { return nullptr; }
    void focus(const WindowElementRef &) override {}

    std::optional<std::vector<WindowListEntry>> onScreenWindows() override;

    std::vector<RunningApplication> runningApplications() override { return m_applications; }
    ProcessIdentifier ownProcessIdentifier() const override { return 1; }
    void hide(ProcessIdentifier) override {}
    void unhide(ProcessIdentifier) override {}
    void setLaunchCallback(std::function<void(const RunningApplication &)>) override {}

private:
    struct Window;

    std::vector<std::shared_ptr<Window>> m_frontToBack;
    std::map<ProcessIdentifier, std::vector<std::shared_ptr<Window>>> m_byApplication;
    std::vector<RunningApplication> m_applications;
};

} // namespace Panorel
