#include "Panorel/UI/ListRow.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainLine.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace Panorel {

ListRow::ListRow(Symbol symbol, const QString &title, QWidget *parent)
    : ActionControl(title, parent), m_symbol(symbol)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ListRow::setTrailingText(const QString &text)
{
    m_trailingText = text;
    setAccessibleDescription(text);
    update();
}

void ListRow::setSymbol(Symbol symbol)
{
    m_symbol = symbol;
    update();
}

QSize ListRow::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    const int width = 3 * Metrics::small + Metrics::symbolSize + metrics.horizontalAdvance(title())
                      + trailingWidth();
    return {width, std::max(Metrics::rowHeight, metrics.height() + Metrics::medium)};
}

int ListRow::trailingWidth() const
{
    if (m_trailingText.isEmpty())
        return 0;
    const QFontMetrics metrics(fontOf(TextStyle::Secondary));
    // A key that is as wide as the row leaves the title its half.
    return std::min(metrics.horizontalAdvance(m_trailingText) + Metrics::medium, width() / 2);
}

QRect ListRow::titleArea() const
{
    return rect().adjusted(2 * Metrics::small + Metrics::symbolSize, 0,
                           -Metrics::small - trailingWidth(), 0);
}

bool ListRow::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const QFontMetrics metrics(fontOf(TextStyle::Body));
        const bool isElided = metrics.horizontalAdvance(title()) > titleArea().width();
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           isElided ? plainToolTip(title()) : QString(), this);
        return true;
    }
    return ActionControl::event(event);
}

void ListRow::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFace(painter, theme);

    constexpr int size = Metrics::symbolSize;
    const QRectF symbolArea(Metrics::small, (height() - size) / 2, size, size);
    drawSymbol(painter, m_symbol, symbolArea, theme.secondaryText);

    const QRect area = titleArea();
    painter.setFont(fontOf(TextStyle::Body));
    painter.setPen(theme.text);
    painter.drawText(area, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, area.width()));

    const QRect trailingArea = rect().adjusted(area.right(), 0, -Metrics::small, 0);
    painter.setFont(fontOf(TextStyle::Secondary));
    painter.setPen(theme.secondaryText);
    painter.drawText(
        trailingArea, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(m_trailingText, Qt::ElideRight, trailingArea.width()));

    paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel
