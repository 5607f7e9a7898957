#pragma once

#include <QHeaderView>

namespace Panorel {

/// The names of the rules' columns, faint over a hairline: the applications' above their names,
/// the others in the middle above their check boxes.
class RuleHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit RuleHeader(QWidget *parent = nullptr);

protected:
    QSize sectionSizeFromContents(int logicalIndex) const override;
    void paintEvent(QPaintEvent *event) override;
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;

private:
    QString name(int logicalIndex) const;
};

} // namespace Panorel
