#include "Panorel/SceneStudio/BoxGrips.h"

#include "Panorel/UI/Metrics.h"

#include <algorithm>

namespace Panorel {

Qt::Edges gripsAt(const QRectF &box, const QPointF &position)
{
    constexpr double reach = Metrics::small; // to either side of an edge
    if (!box.adjusted(-reach, -reach, reach, reach).contains(position))
        return {};
    // A small box must have something left to drag it by.
    const double across = std::min(reach, box.width() / 4);
    const double down = std::min(reach, box.height() / 4);
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, position.x() < box.left() + across);
    edges.setFlag(Qt::RightEdge, position.x() > box.right() - across);
    edges.setFlag(Qt::TopEdge, position.y() < box.top() + down);
    edges.setFlag(Qt::BottomEdge, position.y() > box.bottom() - down);
    return edges;
}

QCursor cursorFor(Qt::Edges edges)
{
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    if (edges)
        return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
    return Qt::SizeAllCursor;
}

} // namespace Panorel
