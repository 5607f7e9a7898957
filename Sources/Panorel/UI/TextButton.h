#pragma once

#include "Panorel/UI/ActionControl.h"

namespace Panorel {

/// A quiet button within or beside text, in the accent's colour.
class TextButton : public ActionControl {
    Q_OBJECT

public:
    explicit TextButton(const QString &title, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
