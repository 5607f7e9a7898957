#include "Panorel/UI/PrimaryButton.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

PrimaryButton::PrimaryButton(const QString &title, QWidget *parent) : ActionControl(title, parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize PrimaryButton::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Heading));
    return {metrics.horizontalAdvance(title()) + 2 * Metrics::large,
            std::max(Metrics::rowHeight, metrics.height() + Metrics::small) + Metrics::tight};
}

void PrimaryButton::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : Theme::disabledOpacity);
    QColor fill = theme.accent;
    if (face() == Face::Hover)
        fill = theme.accentHover;
    else if (face() == Face::Pressed)
        fill = theme.accentPressed;
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect(), Metrics::controlRadius, Metrics::controlRadius);

    const QRect area = rect().adjusted(Metrics::small, 0, -Metrics::small, 0);
    painter.setFont(fontOf(TextStyle::Heading));
    painter.setPen(theme.accentText);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, area.width()));
    // Inside the button, where the accent itself would not show.
    constexpr int inset = Metrics::focusRing;
    paintFocusRing(painter, theme.accentText, rect().adjusted(inset, inset, -inset, -inset));
}

} // namespace Panorel
