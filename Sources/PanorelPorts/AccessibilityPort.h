#pragma once

#include "PanorelCore/Geometry.h"
#include "PanorelPorts/ProcessIdentifier.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace Panorel {

/// One window of another program, in the platform's own terms. Only the port that made it looks
/// inside. The window may be gone at any time; a handle to it then reads as absent.
class WindowElement {
public:
    virtual ~WindowElement() = default;
};

using WindowElementRef = std::shared_ptr<const WindowElement>;

/// What was readable of a window. Every value is absent where the platform has none or its type
/// is wrong; what that means is the reader's decision.
struct WindowAttributes {
    WindowElementRef element; ///< never null
    std::optional<Point> position;
    std::optional<Size> size;
    std::optional<QString> title; ///< valid Unicode
    std::optional<bool> isMinimized;
    std::optional<bool> isFullScreen;
};

struct FrameReading {
    std::optional<Point> position;
    std::optional<Size> size;
};

/// Reads and moves other programs' windows. Positions and sizes are those of the visible frame,
/// decorations included and shadows left out, in the global top-left space.
///
/// Nothing here reports a failure: a window that dies, refuses or does not answer gives absent
/// values, and a request to it has no effect. Main thread only; calls block while the other
/// program or the window manager answers.
class AccessibilityPort {
public:
    virtual ~AccessibilityPort() = default;

    /// Whether windows can be read and moved at all.
    virtual bool isTrusted() const = 0;

    /// Whether it is the user who grants that. Where not, there is nothing to ask for: windows can
    /// be moved as soon as a window manager runs.
    virtual bool isTrustGranted() const = 0;

    /// Asks the platform to lead the user to granting access; nothing where that has no meaning.
    virtual void promptForTrust() = 0;

    /// The windows of one application, in an order that is stable as long as the stacking is:
    /// windows with one title are told apart by it. Empty for an unknown process.
    virtual std::vector<WindowAttributes> windows(ProcessIdentifier pid) = 0;

    /// Moves and resizes, position first; an absent value is not touched. May return before the
    /// window is there; readFrame() then waits for it.
    virtual void apply(const WindowElementRef &window, std::optional<Point> position,
                       std::optional<Size> size) = 0;

    /// The frame as it is now. After apply() it is the frame at which the window came to rest:
    /// where the platform moves windows in its own time, this waits, without running an event
    /// loop, until the window is in place or the port's deadline, counted from the sending, is
    /// over. Many windows sent before the first reading so wait together.
    virtual FrameReading readFrame(const WindowElementRef &window) = 0;

    /// Brings the windows to the front one after the other, so that the last one ends on top.
    /// The focus stays where it is, and no other desktop or Space is switched to.
    virtual void raise(const std::vector<WindowElementRef> &backToFront) = 0;

    /// The ordinary window of another application that has the keyboard focus; null where there
    /// is none, or where this program, a panel or the desktop itself has it.
    virtual WindowElementRef focusedWindow() = 0;

    /// Gives a window the keyboard focus, and raises it only where the platform can't help it.
    /// Nothing for a window that is gone, hidden or minimised, or on another desktop.
    virtual void focus(const WindowElementRef &window) = 0;
};

} // namespace Panorel
