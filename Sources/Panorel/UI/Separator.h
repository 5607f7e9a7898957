#pragma once

#include <QWidget>

namespace Panorel {

/// A hairline between two groups of rows.
class Separator : public QWidget {
    Q_OBJECT

public:
    explicit Separator(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
