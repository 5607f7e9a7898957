#pragma once

#include <cstdint>

namespace Panorel {

/// What the desktop around the program offers to a tray icon and its panel.
class ShellPort {
public:
    virtual ~ShellPort() = default;

    /// The native handle of a window of this program, as the toolkit gives it.
    using WindowHandle = std::uintptr_t;

    /// Whether windows may be translucent at this moment. If not, what is not drawn is black.
    virtual bool isComposited() const = 0;

    /// Whether a tray is there that icons are embedded in, and not only announced to.
    virtual bool hasEmbeddingTray() const = 0;

    /// The window shows on every desktop and in no task bar or window switcher. Before it is
    /// first shown.
    virtual void showOnAllDesktops(WindowHandle window) = 0;
};

} // namespace Panorel
