#pragma once

#include "PanorelPorts/AccessibilityPort.h"

#include <chrono>

namespace Panorel::Bench {

/// Hands everything on and remembers when stacking began, which is when every frame was verified.
class TimedAccessibility final : public AccessibilityPort {
public:
    /// The port outlives it.
    explicit TimedAccessibility(AccessibilityPort &port) : m_port(port) {}

    /// By the last raise().
    std::chrono::steady_clock::time_point raiseBegan() const { return m_raiseBegan; }

    bool isTrusted() const override { return m_port.isTrusted(); }
    bool isTrustGranted() const override { return m_port.isTrustGranted(); }
    void promptForTrust() override { m_port.promptForTrust(); }
    std::vector<WindowAttributes> windows(ProcessIdentifier pid) override
    {
        return m_port.windows(pid);
    }
    void apply(const WindowElementRef &window, std::optional<Point> position,
               std::optional<Size> size) override
    {
        m_port.apply(window, position, size);
    }
    FrameReading readFrame(const WindowElementRef &window) override
    {
        return m_port.readFrame(window);
    }
    void raise(const std::vector<WindowElementRef> &backToFront) override
    {
        m_raiseBegan = std::chrono::steady_clock::now();
        m_port.raise(backToFront);
    }
    WindowElementRef focusedWindow() override { return m_port.focusedWindow(); }
    void focus(const WindowElementRef &window) override { m_port.focus(window); }

private:
    AccessibilityPort &m_port;
    std::chrono::steady_clock::time_point m_raiseBegan{};
};

} // namespace Panorel::Bench
