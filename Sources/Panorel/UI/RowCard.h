#pragma once

#include "Panorel/UI/Card.h"

namespace Panorel {

/// A card of rows below each other with hairlines between those that show.
class RowCard : public Card {
    Q_OBJECT

public:
    explicit RowCard(QWidget *parent = nullptr);

    /// At the end. The card owns it.
    void addRow(QWidget *row);
    /// The rows go when control returns to the event loop: one of them may be what was pressed.
    void clear();

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace Panorel
