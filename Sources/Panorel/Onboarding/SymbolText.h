#pragma once

#include "Panorel/UI/Symbols.h"

#include <QWidget>

namespace Panorel {

/// A symbol beside a heading and a sentence that explains it.
class SymbolText : public QWidget {
    Q_OBJECT

public:
    SymbolText(Symbol symbol, const QString &heading, const QString &text,
               QWidget *parent = nullptr);
};

} // namespace Panorel
