#include "Panorel/Layouts/RuleHeader.h"

#include "Panorel/Layouts/RuleDelegate.h"
#include "Panorel/Layouts/RulesModel.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

RuleHeader::RuleHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent)
{
    setHighlightSections(false);
    setSectionsClickable(false);
    viewport()->setAutoFillBackground(false);
}

QString RuleHeader::name(int logicalIndex) const
{
    return model()->headerData(logicalIndex, Qt::Horizontal, Qt::DisplayRole).toString();
}

QSize RuleHeader::sectionSizeFromContents(int logicalIndex) const
{
    const QFontMetrics metrics(fontOf(TextStyle::Secondary));
    return {metrics.horizontalAdvance(name(logicalIndex)) + 2 * Metrics::medium,
            std::max(Metrics::hitArea, metrics.height() + Metrics::small)};
}

void RuleHeader::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    painter.fillRect(QRect(0, viewport()->height() - 1, viewport()->width(), 1),
                     Theme::of(palette()).line);
}

void RuleHeader::paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    const bool isApplication = logicalIndex == RulesModel::Application;
    const QRect area = isApplication ? RuleDelegate::nameArea(rect) : rect;
    painter->save();
    painter->setFont(fontOf(TextStyle::Secondary));
    painter->setPen(Theme::of(palette()).secondaryText);
    painter->drawText(
        area, int(isApplication ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter,
        painter->fontMetrics().elidedText(name(logicalIndex), Qt::ElideRight, area.width()));
    painter->restore();
}

} // namespace Panorel
