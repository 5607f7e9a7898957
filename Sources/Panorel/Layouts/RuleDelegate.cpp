#include "Panorel/Layouts/RuleDelegate.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Symbols.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace Panorel {

namespace {

void drawApplication(QPainter &painter, const Theme &theme, const QRect &cell,
                     const QModelIndex &index)
{
    constexpr int size = Metrics::symbolSize;
    const QRect iconArea(cell.left() + Metrics::medium, cell.center().y() - size / 2 + 1, size,
                         size);
    const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (icon.isNull())
        drawSymbol(painter, Symbol::Window, iconArea, theme.secondaryText);
    else
        icon.paint(&painter, iconArea);
    const QRect nameArea = RuleDelegate::nameArea(cell);
    painter.setFont(fontOf(TextStyle::Body));
    painter.setPen(theme.text);
    painter.drawText(nameArea, Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(index.data().toString(), Qt::ElideRight,
                                                      nameArea.width()));
}

void drawCheckBox(QPainter &painter, const Theme &theme, const QRect &cell, bool isChecked)
{
    constexpr double side = 16;
    constexpr double radius = 4;
    constexpr double line = 1.5;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(cell).center());
    if (isChecked) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.accent);
        painter.drawRoundedRect(box, radius, radius);
        drawSymbol(painter, Symbol::Check, box, theme.accentText);
        return;
    }
    painter.setPen(QPen(theme.off, line));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(line / 2, line / 2, -line / 2, -line / 2), radius, radius);
}

} // namespace

QRect RuleDelegate::nameArea(const QRect &cell)
{
    constexpr int indent = Metrics::medium + Metrics::symbolSize + Metrics::small;
    return cell.adjusted(indent, 0, -Metrics::small, 0);
}

QSize RuleDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    const int height = QFontMetrics(fontOf(TextStyle::Body)).height() + Metrics::medium;
    return {0, std::max(Metrics::rowHeight, height)};
}

void RuleDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    const Theme theme = Theme::of(option.palette);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (option.state & QStyle::State_MouseOver)
        painter->fillRect(option.rect, theme.hover);
    const QVariant check = index.data(Qt::CheckStateRole);
    if (check.isValid())
        drawCheckBox(*painter, theme, option.rect, check.value<Qt::CheckState>() == Qt::Checked);
    else
        drawApplication(*painter, theme, option.rect, index);
    if (option.state & QStyle::State_HasFocus) {
        constexpr double inset = Metrics::focusRing / 2.0;
        painter->setPen(QPen(theme.accentInk, Metrics::focusRing));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset),
                                 Metrics::controlRadius, Metrics::controlRadius);
    }
    painter->restore();
}

bool RuleDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                               const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QVariant check = index.data(Qt::CheckStateRole);
    if (!check.isValid())
        return false;
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton || !option.rect.contains(mouse->position().toPoint()))
            return false;
    } else if (event->type() != QEvent::KeyPress
               || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Space) {
        return false;
    }
    const bool isChecked = check.value<Qt::CheckState>() == Qt::Checked;
    return model->setData(index, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

} // namespace Panorel
