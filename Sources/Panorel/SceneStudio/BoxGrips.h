#pragma once

#include <QCursor>
#include <QRectF>

namespace Panorel {

/// Which edges of a box a press takes hold of, two at a corner; none in the middle and away from
/// it. Its whole edges are grips, not only the handles drawn on them. In the canvas's coordinates.
Qt::Edges gripsAt(const QRectF &box, const QPointF &position);

/// What dragging these edges does; none: the whole box.
QCursor cursorFor(Qt::Edges edges);

} // namespace Panorel
