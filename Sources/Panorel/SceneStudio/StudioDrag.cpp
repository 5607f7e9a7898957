#include "Panorel/SceneStudio/StudioDrag.h"

#include "Panorel/UI/Metrics.h"

namespace Panorel {

StudioDrag::StudioDrag(SceneStudioModel &model, int id, Qt::Edges edges, const QPointF &pressed,
                       const QTransform &transform)
    : m_gesture(model, id, edges), m_pressed(pressed), m_at(pressed), m_transform(transform)
{}

void StudioDrag::moveTo(const QPointF &position, Qt::KeyboardModifiers modifiers)
{
    constexpr double threshold = 3;
    m_at = position;
    if ((m_at - m_pressed).manhattanLength() >= threshold)
        m_hasMoved = true;
    setModifiers(modifiers);
}

void StudioDrag::setModifiers(Qt::KeyboardModifiers modifiers)
{
    if (!m_hasMoved)
        return;
    constexpr double snapReach = Metrics::small;
    const double scale = m_transform.m11();
    const QPointF way = (m_at - m_pressed) / scale;
    m_gesture.dragTo({way.x(), way.y()}, modifiers & Qt::AltModifier ? 0 : snapReach / scale);
}

} // namespace Panorel
