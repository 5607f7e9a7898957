#pragma once

#include "PanorelPorts/AccessibilityPort.h"

#include <QString>

#include <optional>
#include <vector>

namespace Panorel {

/// One window of another application. Title, frame and states are those of the moment it was
/// listed; currentFrame() reads afresh. A value: copies name the same window. The port must
/// outlive it. Every failure is silent, the window may be gone at any time.
class AXWindow {
public:
    /// Every window of the process that has a readable position and size, in the port's order,
    /// whatever its kind or size.
    static std::vector<AXWindow> windows(AccessibilityPort &port, ProcessIdentifier pid);

    const WindowElementRef &element() const { return m_element; }
    ProcessIdentifier pid() const { return m_pid; }
    const QString &title() const { return m_title; } ///< empty where there is none
    const Rect &frame() const { return m_frame; }
    bool isMinimized() const { return m_isMinimized; }
    bool isFullScreen() const { return m_isFullScreen; }

    /// Absent unless both position and size can be read. Waits for an apply() under way.
    std::optional<Rect> currentFrame() const;

    /// Moves, then resizes; what is absent is not touched. Neither waits nor verifies.
    void apply(std::optional<Point> position, std::optional<Size> size) const;

private:
    AXWindow(AccessibilityPort &port, ProcessIdentifier pid, const WindowAttributes &attributes,
             const Rect &frame);

    AccessibilityPort *m_port;
    WindowElementRef m_element;
    ProcessIdentifier m_pid;
    QString m_title;
    Rect m_frame;
    bool m_isMinimized;
    bool m_isFullScreen;
};

} // namespace Panorel
