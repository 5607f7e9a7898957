#pragma once

#include <QPixmap>

class QColor;
class QPainter;
class QRectF;

namespace Panorel {

/// The project's own line symbols, drawn on a grid of 20 with a line of 1.5. Each is a file of
/// symbols/; Symbols.cpp names them in this order.
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
    General,
    Keyboard,
    Clock,
    Info,
    Rules,
    Trash,
    Edit,
    Play,
    Calendar,
    Picture,
    Check,
    Warning,
    Permission,
    More,
    ChevronDown,
    ChevronRight,
    Redo,
};

/// Draws it in one colour, sharp at any scale.
void drawSymbol(QPainter &painter, Symbol symbol, const QRectF &area, const QColor &color);

} // namespace Panorel
