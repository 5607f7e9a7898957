#include "Panorel/UI/StatusLine.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace Panorel {

namespace {

constexpr int dotSize = 8;

QColor colorOf(Status status, const Theme &theme)
{
    switch (status) {
    case Status::Good:
        return theme.good;
    case Status::Attention:
        return theme.attention;
    case Status::Off:
        break;
    }
    return theme.off;
}

} // namespace

StatusLine::StatusLine(TextLabel::Fit fit, QWidget *parent)
    : QWidget(parent), m_label(new TextLabel(TextStyle::Body, fit))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(dotSize + Metrics::small, 0, 0, 0);
    layout->addWidget(m_label);
}

void StatusLine::setStatus(Status status, const QString &text)
{
    m_status = status;
    m_label->setText(text);
    update();
}

QString StatusLine::text() const
{
    return m_label->text();
}

void StatusLine::paintEvent(QPaintEvent *)
{
    const QColor color = colorOf(m_status, Theme::of(palette()));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Beside the first line of the text, which is in the middle of its label.
    const int lineHeight = m_label->minimumSizeHint().height();
    const int textHeight = std::max(m_label->heightForWidth(m_label->width()), lineHeight);
    const double top = m_label->y() + (m_label->height() - textHeight) / 2.0;
    QRectF dot(0, top + (lineHeight - dotSize) / 2.0, dotSize, dotSize);
    if (m_status == Status::Off) {
        painter.setPen(QPen(color, 1.5));
        dot.adjust(0.75, 0.75, -0.75, -0.75);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
    }
    painter.drawEllipse(dot);
}

} // namespace Panorel
