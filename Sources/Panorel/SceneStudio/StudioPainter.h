#pragma once

#include "Panorel/UI/SchematicPainter.h"
#include "Panorel/UI/Theme.h"

#include <QPalette>
#include <QRect>
#include <QTransform>

class QPainter;

namespace Panorel {

class SceneStudioModel;
struct Rect;
struct StudioLines;

/// Draws a scene in the studio. Frames and lines are in global coordinates.
class StudioPainter {
public:
    /// `transform` leads from global coordinates to `canvas`. The painter must outlive it.
    StudioPainter(QPainter &painter, const QTransform &transform, const QRect &canvas,
                  const QPalette &palette);

    void drawGround();
    /// The displays with the windows on them.
    void drawScene(const SceneStudioModel &model, const IconOf &iconOf);
    void drawSelection(const Rect &frame, bool hasFocus);
    /// The lines that the dragged box came to, and where it is.
    void drawDrag(const Rect &frame, const StudioLines &guides);

private:
    QPainter &m_painter;
    QTransform m_transform;
    QRect m_canvas;
    QPalette m_palette;
    Theme m_theme;
};

} // namespace Panorel
