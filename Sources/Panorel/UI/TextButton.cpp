#include "Panorel/UI/TextButton.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

TextButton::TextButton(const QString &title, QWidget *parent) : ActionControl(title, parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TextButton::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    return {metrics.horizontalAdvance(title()) + 2 * Metrics::small,
            std::max(Metrics::hitArea, metrics.height() + Metrics::small)};
}

void TextButton::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFace(painter, theme);
    painter.setFont(fontOf(TextStyle::Body));
    painter.setPen(theme.accentInk);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, title());
    paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel
