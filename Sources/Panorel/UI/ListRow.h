#pragma once

#include "Panorel/UI/ActionControl.h"
#include "Panorel/UI/Symbols.h"

namespace Panorel {

/// One line of a list or a menu: symbol, title, and at the right a key or a value.
class ListRow : public ActionControl {
    Q_OBJECT

public:
    ListRow(Symbol symbol, const QString &title, QWidget *parent = nullptr);

    QString trailingText() const { return m_trailingText; }
    void setTrailingText(const QString &text);
    void setSymbol(Symbol symbol);

    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int trailingWidth() const;
    QRect titleArea() const;

    Symbol m_symbol;
    QString m_trailingText;
};

} // namespace Panorel
