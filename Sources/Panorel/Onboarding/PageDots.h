#pragma once

#include <QWidget>

namespace Panorel {

/// Which page of how many, as a row of dots.
class PageDots : public QWidget {
    Q_OBJECT

public:
    explicit PageDots(QWidget *parent = nullptr);

    void setCount(int count);
    void setCurrent(int page); ///< from 0 on

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void describe();

    int m_count = 1;
    int m_current = 0;
};

} // namespace Panorel
