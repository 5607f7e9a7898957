#pragma once

#include "Panorel/UI/ActionControl.h"

namespace Panorel {

/// A button with an outline, for what a row or a dialog offers beside its one prominent action.
class PlainButton : public ActionControl {
    Q_OBJECT

public:
    explicit PlainButton(const QString &title, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
