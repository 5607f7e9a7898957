#pragma once

#include "Panorel/UI/Symbols.h"

#include <QWidget>

namespace Panorel {

/// A symbol that only shows.
class SymbolView : public QWidget {
    Q_OBJECT

public:
    explicit SymbolView(Symbol symbol, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Symbol m_symbol;
};

} // namespace Panorel
