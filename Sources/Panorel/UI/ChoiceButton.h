#pragma once

#include "Panorel/UI/ActionControl.h"

namespace Panorel {

/// A small choice that is on or off, one of a few that stand side by side.
class ChoiceButton : public ActionControl {
    Q_OBJECT

public:
    explicit ChoiceButton(const QString &title, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
