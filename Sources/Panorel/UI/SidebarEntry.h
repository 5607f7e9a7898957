#pragma once

#include "Panorel/UI/ActionControl.h"
#include "Panorel/UI/Symbols.h"

namespace Panorel {

/// One page's name in a Sidebar; checked: it is the one that shows.
class SidebarEntry : public ActionControl {
    Q_OBJECT

public:
    SidebarEntry(Symbol symbol, const QString &name, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Symbol m_symbol;
};

} // namespace Panorel
