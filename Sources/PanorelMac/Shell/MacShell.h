#pragma once

#include "PanorelPorts/ShellPort.h"

namespace Panorel::Mac {

/// The macOS desktop composes every window and has a menu bar at all times.
class MacShell final : public ShellPort {
public:
    bool isComposited() const override { return true; }
    bool hasEmbeddingTray() const override { return true; }
    /// Also makes a panel of it: above other windows and beside full-screen ones, staying when
    /// another application becomes active, and taking the keyboard without making this one so.
    void showOnAllDesktops(WindowHandle window) override;
};

} // namespace Panorel::Mac
