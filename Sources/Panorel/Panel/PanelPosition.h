#pragma once

#include <QRect>

#include <optional>

namespace Panorel {

/// Where a panel is to open. Rectangles are in Qt's global coordinates, y downwards.
struct PanelAnchor {
    /// The button that was pressed; absent where the tray does not tell.
    std::optional<QRect> button;
    /// What panels and docks leave of the button's screen.
    QRect visibleFrame;
    /// Where the pointer pressed; absent where no pointer did. Counts only without a button.
    std::optional<QPoint> pointer;
};

/// The panel's place and, if it is higher than the screen, its height cut to it.
///
/// Beside its button, centred on it, 6 away from it or, where the button sits in a bar, from the
/// bar; on the bar's inner side, whichever edge of the screen that is. Without a button at the
/// edge nearest to the pointer, without a pointer in the top right corner. Elsewhere at least 8
/// inside the visible frame.
QRect panelFrame(const PanelAnchor &anchor, const QSize &size);

} // namespace Panorel
