#pragma once

#include "PanorelPorts/AccessibilityPort.h"

namespace Panorel {

/// Whether Panorel may read and move other applications' windows, and the way to get there.
class PermissionCenter {
public:
    explicit PermissionCenter(AccessibilityPort &port) : m_port(port) {}

    bool hasAccessibility() const { return m_port.isTrusted(); }

    /// Whether it is for the user to grant; where not, a window manager is all it takes.
    bool isGrantedByUser() const { return m_port.isTrustGranted(); }

    /// The answer comes later, if ever: ask hasAccessibility() again.
    void promptAccessibility() { m_port.promptForTrust(); }

private:
    AccessibilityPort &m_port;
};

} // namespace Panorel
