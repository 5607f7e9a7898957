#include "Panorel/UI/Card.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace Panorel {

Card::Card(QWidget *parent) : QWidget(parent), m_body(new QVBoxLayout(this))
{
    m_body->setContentsMargins(Metrics::medium, Metrics::medium, Metrics::medium, Metrics::medium);
    m_body->setSpacing(Metrics::small);
}

void Card::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.line, 1));
    painter.setBrush(theme.card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Metrics::cardRadius,
                            Metrics::cardRadius);
}

} // namespace Panorel
