#pragma once

#include "PanorelPorts/AccessibilityPort.h"

namespace Panorel::Mac {

/// Windows read and moved through the accessibility interface, which the user has to grant.
///
/// An application that doesn't answer holds a call up for half a second. This program's own
/// windows are left out: asking oneself can wait for oneself forever.
class MacAccessibility final : public AccessibilityPort {
public:
    /// The process that is never asked.
    explicit MacAccessibility(ProcessIdentifier own);

    bool isTrusted() const override;
    bool isTrustGranted() const override { return true; }
    void promptForTrust() override;
    /// Front to back. What an application that stops answering on the way had not yet said is
    /// absent.
    std::vector<WindowAttributes> windows(ProcessIdentifier pid) override;
    void apply(const WindowElementRef &window, std::optional<Point> position,
               std::optional<Size> size) override;
    /// All absent where a half of it is.
    FrameReading readFrame(const WindowElementRef &window) override;
    void raise(const std::vector<WindowElementRef> &backToFront) override;
    WindowElementRef focusedWindow() override;
    void focus(const WindowElementRef &window) override;

private:
    const ProcessIdentifier m_own;
};

} // namespace Panorel::Mac
