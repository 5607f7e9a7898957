#include "Panorel/UI/RowCard.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace Panorel {

RowCard::RowCard(QWidget *parent) : Card(parent)
{
    body()->setContentsMargins(Metrics::medium, Metrics::tight, Metrics::medium, Metrics::tight);
    body()->setSpacing(1); // the hairline
}

void RowCard::addRow(QWidget *row)
{
    body()->addWidget(row);
}

void RowCard::clear()
{
    while (QLayoutItem *item = body()->takeAt(0)) {
        if (QWidget *row = item->widget()) {
            row->hide();
            row->deleteLater();
        }
        delete item;
    }
}

void RowCard::paintEvent(QPaintEvent *event)
{
    Card::paintEvent(event);
    QPainter painter(this);
    bool isFirst = true;
    for (int i = 0; i < body()->count(); ++i) {
        const QWidget *row = body()->itemAt(i)->widget();
        if (!row || row->isHidden())
            continue;
        if (!isFirst) {
            const QRect area = row->geometry();
            painter.fillRect(QRect(area.left(), area.top() - 1, area.width(), 1),
                             Theme::of(palette()).line);
        }
        isFirst = false;
    }
}

} // namespace Panorel
