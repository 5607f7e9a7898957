#include "Panorel/SceneStudio/StudioOverlay.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Panorel::StudioOverlay {

void drawSelection(QPainter &painter, const QRectF &box, bool hasFocus, const Theme &theme)
{
    painter.setPen(QPen(theme.accentInk, hasFocus ? Metrics::focusRing : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, Metrics::tight, Metrics::tight);

    constexpr double side = Metrics::small;
    painter.setPen(QPen(theme.accentInk, 1.5));
    painter.setBrush(theme.window);
    const double across[] = {box.left(), box.center().x(), box.right()};
    const double down[] = {box.top(), box.center().y(), box.bottom()};
    for (const double x : across) {
        for (const double y : down) {
            const bool isMiddle = x == across[1] && y == down[1];
            if (!isMiddle)
                painter.drawEllipse(QPointF(x, y), side / 2, side / 2);
        }
    }
}

void drawGuide(QPainter &painter, const QLineF &line, const Theme &theme)
{
    painter.setPen(QPen(theme.accentInk, 1));
    const auto sharp = [](const QPointF &point) {
        return QPointF(std::floor(point.x()) + 0.5, std::floor(point.y()) + 0.5);
    };
    painter.drawLine(sharp(line.p1()), sharp(line.p2()));
}

void drawReadout(QPainter &painter, const QString &text, const QPointF &point, const QRectF &area,
                 const Theme &theme)
{
    painter.setFont(fontOf(TextStyle::Secondary));
    const QFontMetrics metrics = painter.fontMetrics();
    QRectF chip(0, 0, metrics.horizontalAdvance(text) + 2 * Metrics::small,
                metrics.height() + Metrics::small);
    chip.moveCenter(point);
    chip.moveTop(point.y() + Metrics::medium);
    chip.moveLeft(std::max(area.left(), std::min(chip.left(), area.right() - chip.width())));
    chip.moveTop(std::max(area.top(), std::min(chip.top(), area.bottom() - chip.height())));
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.text);
    painter.drawRoundedRect(chip, Metrics::controlRadius, Metrics::controlRadius);
    painter.setPen(theme.window);
    painter.drawText(chip, Qt::AlignCenter | Qt::TextSingleLine, text);
}

} // namespace Panorel::StudioOverlay
