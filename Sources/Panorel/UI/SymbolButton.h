#pragma once

#include "Panorel/UI/ActionControl.h"
#include "Panorel/UI/Symbols.h"

namespace Panorel {

/// A small square button with a symbol alone; its title is its tool tip and read out.
class SymbolButton : public ActionControl {
    Q_OBJECT

public:
    SymbolButton(Symbol symbol, const QString &title, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Symbol m_symbol;
};

} // namespace Panorel
