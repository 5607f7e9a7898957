#pragma once

#include "Panorel/UI/ActionControl.h"

namespace Panorel {

/// The one thing that a view is there for. At most one in sight.
class PrimaryButton : public ActionControl {
    Q_OBJECT

public:
    explicit PrimaryButton(const QString &title, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
