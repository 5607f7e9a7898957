#pragma once

#include "PanorelCore/Geometry.h"

#include <QString>

#include <functional>
#include <optional>

namespace Panorel {

/// The program's button in the menu bar, where the platform has a better one than the toolkit's
/// tray icon. Main thread only.
class StatusItemPort {
public:
    virtual ~StatusItemPort() = default;

    /// Puts the button in the menu bar. `pressed` is called on the main thread, from the event
    /// loop, at every press; it may call hide().
    virtual void show(std::function<void()> pressed) = 0;

    /// Takes it away; nothing where it does not show.
    virtual void hide() = 0;

    /// What the button says when the pointer rests on it. Kept while it does not show.
    virtual void setToolTip(const QString &text) = 0;

    /// Where the button is, in the global top-left space; absent where it does not show or has no
    /// screen.
    virtual std::optional<Rect> buttonFrame() const = 0;
};

} // namespace Panorel
