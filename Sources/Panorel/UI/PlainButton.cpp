#include "Panorel/UI/PlainButton.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

PlainButton::PlainButton(const QString &title, QWidget *parent) : ActionControl(title, parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PlainButton::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    return {metrics.horizontalAdvance(title()) + 2 * Metrics::medium,
            std::max(Metrics::hitArea, metrics.height() + Metrics::small)};
}

void PlainButton::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : Theme::disabledOpacity);
    QColor fill = theme.window;
    if (face() == Face::Hover)
        fill = theme.hover;
    else if (face() == Face::Pressed)
        fill = theme.pressed;
    painter.setPen(QPen(theme.border, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Metrics::controlRadius,
                            Metrics::controlRadius);
    const QRect area = rect().adjusted(Metrics::small, 0, -Metrics::small, 0);
    painter.setFont(fontOf(TextStyle::Body));
    painter.setPen(theme.text);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, area.width()));
    paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel
