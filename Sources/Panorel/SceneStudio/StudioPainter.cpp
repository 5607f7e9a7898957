#include "Panorel/SceneStudio/StudioPainter.h"

#include "Panorel/SceneStudio/SceneStudioModel.h"
#include "Panorel/SceneStudio/StudioGesture.h"
#include "Panorel/SceneStudio/StudioOverlay.h"
#include "Panorel/SceneStudio/StudioText.h"
#include "Panorel/UI/Metrics.h"

#include <QPainter>

namespace Panorel {

StudioPainter::StudioPainter(QPainter &painter, const QTransform &transform, const QRect &canvas,
                             const QPalette &palette)
    : m_painter(painter), m_transform(transform), m_canvas(canvas), m_palette(palette),
      m_theme(Theme::of(palette))
{
    m_painter.setRenderHint(QPainter::Antialiasing);
}

void StudioPainter::drawGround()
{
    m_painter.fillRect(m_canvas, m_theme.card);
    const QRect line(m_canvas.topLeft(), QSize(m_canvas.width(), 1));
    m_painter.fillRect(line, m_theme.line);
    m_painter.fillRect(line.translated(0, m_canvas.height() - 1), m_theme.line);
}

void StudioPainter::drawScene(const SceneStudioModel &model, const IconOf &iconOf)
{
    SchematicPainter schematic(m_painter, m_transform, m_canvas, m_palette);
    for (const DisplayInfo &display : model.displays())
        schematic.drawDisplay(display);
    const auto &boxes = model.boxes();
    for (auto box = boxes.rbegin(); box != boxes.rend(); ++box) // the frontmost last
        schematic.drawWindow(box->record, iconOf,
                             box->isGhost ? WindowLook::Ghost : WindowLook::Titled);
}

void StudioPainter::drawSelection(const Rect &frame, bool hasFocus)
{
    StudioOverlay::drawSelection(m_painter, m_transform.mapRect(rectOf(frame)), hasFocus, m_theme);
}

void StudioPainter::drawDrag(const Rect &frame, const StudioLines &guides)
{
    const QRectF area(m_canvas);
    for (const double x : guides.x) {
        const double at = m_transform.map(QPointF(x, 0)).x();
        StudioOverlay::drawGuide(m_painter, {at, area.top(), at, area.bottom()}, m_theme);
    }
    for (const double y : guides.y) {
        const double at = m_transform.map(QPointF(0, y)).y();
        StudioOverlay::drawGuide(m_painter, {area.left(), at, area.right(), at}, m_theme);
    }
    const QRectF box = m_transform.mapRect(rectOf(frame));
    constexpr double margin = Metrics::tight;
    StudioOverlay::drawReadout(m_painter, StudioText::placeOf(frame),
                               {box.center().x(), box.bottom()},
                               area.adjusted(margin, margin, -margin, -margin), m_theme);
}

} // namespace Panorel
