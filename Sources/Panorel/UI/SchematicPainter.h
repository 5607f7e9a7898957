#pragma once

#include "PanorelCore/Records/Models.h"

#include <QIcon>
#include <QPalette>
#include <QTransform>

#include <functional>

class QPainter;

namespace Panorel {

using IconOf = std::function<QIcon(const QString &bundleID)>;

QRectF rectOf(const Rect &rect);

/// Shows all of `bounds` as large as `area` allows, in its middle. Identity where either is empty.
QTransform fitting(const QRectF &bounds, const QRectF &area);

enum class WindowLook {
    Plain,  ///< with its icon
    Titled, ///< with icon and title, and hiding what lies behind it, which could not be read
    Ghost,  ///< the same of an application that does not run: dashed and faint
};

/// How displays and windows are drawn wherever a desk is shown, at any scale: what has no room is
/// left out.
class SchematicPainter {
public:
    /// `toView` maps global coordinates to the painter's and neither turns nor shears. Of a window
    /// only what lies within `area` is drawn. The painter must outlive it.
    SchematicPainter(QPainter &painter, const QTransform &toView, const QRectF &area,
                     const QPalette &palette);

    /// The name only where there is room for it.
    void drawDisplay(const DisplayInfo &display, bool showsName = true);
    /// `iconOf` is asked only where there is room; a null icon gives a neutral symbol.
    void drawWindow(const WindowRecord &window, const IconOf &iconOf,
                    WindowLook look = WindowLook::Plain);

private:
    void drawFace(const QRectF &box, WindowLook look);
    void drawIcon(const QRectF &area, const WindowRecord &window, const IconOf &iconOf,
                  WindowLook look);
    void drawTitle(const QRectF &area, const WindowRecord &window, WindowLook look);

    QPainter &m_painter;
    QTransform m_toView;
    QRectF m_area;
    QPalette m_palette;
};

} // namespace Panorel
