#include "Panorel/UI/SidebarEntry.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace Panorel {

SidebarEntry::SidebarEntry(Symbol symbol, const QString &name, QWidget *parent)
    : ActionControl(name, parent), m_symbol(symbol)
{
    setCheckable(true);
    setAutoExclusive(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize SidebarEntry::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Body));
    return {3 * Metrics::small + Metrics::symbolSize + metrics.horizontalAdvance(title()),
            std::max(Metrics::rowHeight, metrics.height() + Metrics::medium)};
}

void SidebarEntry::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        event->ignore(); // the sidebar's
        break;
    default:
        ActionControl::keyPressEvent(event);
    }
}

void SidebarEntry::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accent);
        painter.drawRoundedRect(rect(), Metrics::controlRadius, Metrics::controlRadius);
    } else {
        paintFace(painter, theme);
    }

    constexpr int size = Metrics::symbolSize;
    const QRect symbolArea(Metrics::small, (height() - size) / 2, size, size);
    const QRect textArea = rect().adjusted(2 * Metrics::small + size, 0, -Metrics::small, 0);
    drawSymbol(painter, m_symbol, QStyle::visualRect(layoutDirection(), rect(), symbolArea),
               isChecked() ? theme.accentText : theme.secondaryText);
    painter.setFont(fontOf(TextStyle::Body));
    painter.setPen(isChecked() ? theme.accentText : theme.text);
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), textArea),
                     Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title(), Qt::ElideRight, textArea.width()));

    // On the accent the ring lies inside, where it shows.
    constexpr int inset = Metrics::focusRing;
    if (isChecked())
        paintFocusRing(painter, theme.accentText, rect().adjusted(inset, inset, -inset, -inset));
    else
        paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel
