#pragma once

#include "Panorel/UI/TextStyle.h"

#include <QFontMetrics>
#include <QLabel>

namespace Panorel {

/// Text in one of the styles. It is plain text always: names come from displays, windows and the
/// user. Its font is that of the style and not the widget's own, so that it follows the
/// application's.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    enum class Fit {
        Elide, ///< one line; what does not fit becomes "…" and a tool tip
        Wrap,  ///< as many lines as it takes
    };

    explicit TextLabel(TextStyle style, Fit fit = Fit::Elide, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QFontMetrics metrics() const;

    TextStyle m_style;
    Fit m_fit;
};

} // namespace Panorel
