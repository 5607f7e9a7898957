#include "Panorel/UI/TextLabel.h"

#include "Panorel/UI/PlainLine.h"
#include "Panorel/UI/Theme.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace Panorel {

TextLabel::TextLabel(TextStyle style, Fit fit, QWidget *parent)
    : QLabel(parent), m_style(style), m_fit(fit)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(fit == Fit::Wrap);
}

QFontMetrics TextLabel::metrics() const
{
    return QFontMetrics(fontOf(m_style));
}

QSize TextLabel::sizeHint() const
{
    // Rounded up: a line that gets half a pixel less than it needs is elided.
    const double width = QFontMetricsF(fontOf(m_style)).horizontalAdvance(text());
    return {int(std::ceil(width)) + 1, metrics().height()};
}

QSize TextLabel::minimumSizeHint() const
{
    return {0, metrics().height()};
}

int TextLabel::heightForWidth(int width) const
{
    if (m_fit == Fit::Elide)
        return -1;
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    return metrics().boundingRect(room, int(alignment()) | Qt::TextWordWrap, text()).height();
}

bool TextLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && m_fit == Fit::Elide) {
        const bool isElided = sizeHint().width() > width();
        const QPoint position = static_cast<QHelpEvent *>(event)->globalPos();
        QToolTip::showText(position, isElided ? plainToolTip(text()) : QString(), this);
        return true;
    }
    if (event->type() == QEvent::ApplicationFontChange)
        updateGeometry(); // its font is the application's and not its own
    return QLabel::event(event);
}

void TextLabel::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setPen(m_style == TextStyle::Secondary ? theme.secondaryText : theme.text);
    painter.setFont(fontOf(m_style));
    const QRect area = rect();
    if (m_fit == Fit::Wrap) {
        painter.drawText(area, int(alignment()) | Qt::TextWordWrap, text());
        return;
    }
    const QString shown = painter.fontMetrics().elidedText(text(), Qt::ElideRight, area.width());
    painter.drawText(area, int(alignment()) | Qt::TextSingleLine, shown);
}

} // namespace Panorel
