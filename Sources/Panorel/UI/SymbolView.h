#pragma once

#include "Panorel/UI/Symbols.h"

#include <QWidget>

namespace Panorel {

/// A symbol that only shows.
class SymbolView : public QWidget {
    Q_OBJECT

public:
    enum class Tint { Accent, Faint };

    explicit SymbolView(Symbol symbol, Tint tint = Tint::Accent, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Symbol m_symbol;
    Tint m_tint;
};

} // namespace Panorel
