#include "Panorel/UI/ChoiceButton.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

ChoiceButton::ChoiceButton(const QString &title, QWidget *parent) : ActionControl(title, parent)
{
    setCheckable(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ChoiceButton::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    return {metrics.horizontalAdvance(title()) + 2 * Metrics::medium,
            std::max(Metrics::hitArea, metrics.height() + Metrics::small)};
}

void ChoiceButton::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = face() == Face::Rest ? theme.card : theme.hover;
    if (face() == Face::Pressed)
        fill = theme.pressed;
    if (isChecked())
        fill = face() == Face::Rest ? theme.accent : theme.accentHover;
    painter.setPen(isChecked() ? QPen(Qt::NoPen) : QPen(theme.line, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Metrics::controlRadius,
                            Metrics::controlRadius);
    const QRect area = rect().adjusted(Metrics::tight, 0, -Metrics::tight, 0);
    painter.setFont(fontOf(TextStyle::Body));
    painter.setPen(isChecked() ? theme.accentText : theme.text);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, area.width()));
    constexpr int inset = Metrics::focusRing;
    paintFocusRing(painter, isChecked() ? theme.accentText : theme.accentInk,
                   rect().adjusted(inset, inset, -inset, -inset));
}

} // namespace Panorel
