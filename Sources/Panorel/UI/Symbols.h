#pragma once

#include <QPixmap>

class QColor;
class QPainter;
class QRectF;

namespace Panorel {

/// The project's own line symbols, drawn on a grid of 20 with a line of 1.5.
enum class Symbol {
    Display,
    Scene,
    Plus,
    Close,
    Stash,
    BringBack,
    Undo,
    Layouts,
    Settings,
    Update,
    Quit,
    Window,
};

/// Draws it in one colour, sharp at any scale.
void drawSymbol(QPainter &painter, Symbol symbol, const QRectF &area, const QColor &color);

} // namespace Panorel
