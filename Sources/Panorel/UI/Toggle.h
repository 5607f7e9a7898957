#pragma once

#include "Panorel/UI/ActionControl.h"

namespace Panorel {

/// A switch: on or off, at once. Its title is read out and not shown; the row that it stands in
/// shows it.
class Toggle : public ActionControl {
    Q_OBJECT

public:
    explicit Toggle(const QString &title = {}, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
