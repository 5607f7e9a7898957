#pragma once

#include "Panorel/UI/Card.h"

namespace Panorel {

/// The tip that scenes can have keys of their own, until the user closes it.
class TipCard : public Card {
    Q_OBJECT

public:
    explicit TipCard(QWidget *parent = nullptr);

Q_SIGNALS:
    void setKeyRequested();
    void closed();
};

} // namespace Panorel
