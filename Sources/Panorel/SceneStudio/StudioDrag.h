#pragma once

#include "Panorel/SceneStudio/StudioGesture.h"

#include <QPointF>
#include <QTransform>

namespace Panorel {

/// The mouse from a press on a box until it is let go. The canvas is shown as it was at the press
/// meanwhile, or the box would not follow the pointer.
class StudioDrag {
public:
    /// No edges: the whole box. `transform` leads from global coordinates to the canvas. The model
    /// must outlive it.
    StudioDrag(SceneStudioModel &model, int id, Qt::Edges edges, const QPointF &pressed,
               const QTransform &transform);

    /// In the canvas. With Alt it snaps to nothing.
    void moveTo(const QPointF &position, Qt::KeyboardModifiers modifiers);
    /// The pointer stays; Alt was pressed or let go.
    void setModifiers(Qt::KeyboardModifiers modifiers);

    /// False for a click that trembles, which moves nothing.
    bool hasMoved() const { return m_hasMoved; }
    const StudioLines &guides() const { return m_gesture.guides(); }
    const QTransform &transform() const { return m_transform; }

private:
    StudioGesture m_gesture;
    QPointF m_pressed;
    QPointF m_at;
    QTransform m_transform;
    bool m_hasMoved = false;
};

} // namespace Panorel
