#pragma once

#include "Panorel/UI/Symbols.h"

#include <QWidget>

namespace Panorel {

/// In place of a list that has nothing in it: what will appear here, and the one button that makes
/// it appear.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    /// An empty `action`: there is no button.
    EmptyState(Symbol symbol, const QString &sentence, const QString &action = {},
               QWidget *parent = nullptr);

Q_SIGNALS:
    void clicked();
};

} // namespace Panorel
