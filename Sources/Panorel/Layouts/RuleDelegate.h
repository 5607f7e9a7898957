#pragma once

#include <QStyledItemDelegate>

namespace Panorel {

/// Draws the rows of the rules: icon and name, and check boxes in the middle of their columns. A
/// click anywhere on a check box's cell, or Space, switches it.
class RuleDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where an application's name stands in its cell.
    static QRect nameArea(const QRect &cell);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
};

} // namespace Panorel
