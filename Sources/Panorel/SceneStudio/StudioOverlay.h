#pragma once

#include <QLineF>
#include <QRectF>
#include <QString>

class QPainter;

namespace Panorel {

struct Theme;

/// What the studio draws over the boxes, in the canvas's coordinates.
namespace StudioOverlay {

/// An outline with a handle at every corner and in the middle of every edge.
void drawSelection(QPainter &painter, const QRectF &box, bool hasFocus, const Theme &theme);

void drawGuide(QPainter &painter, const QLineF &line, const Theme &theme);

/// Below the point, or wherever it fits into `area`.
void drawReadout(QPainter &painter, const QString &text, const QPointF &point, const QRectF &area,
                 const Theme &theme);

} // namespace StudioOverlay

} // namespace Panorel
