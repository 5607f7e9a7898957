#pragma once

#include "Panorel/UI/Symbols.h"

#include <QWidget>

#include <vector>

class QVBoxLayout;

namespace Panorel {

class SidebarEntry;

/// The pages of a window, one of them chosen. Tab comes to the chosen one only; Up, Down, Home and
/// End choose.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    explicit Sidebar(const QString &name, QWidget *parent = nullptr);

    /// At the end. The first one is chosen until setCurrent().
    void add(Symbol symbol, const QString &name);
    int current() const { return m_current; }
    /// Counted from 0; emits nothing.
    void setCurrent(int index);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user chose another one.
    void chosen(int index);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void choose(int index);

    QVBoxLayout *m_layout;
    std::vector<SidebarEntry *> m_entries;
    int m_current = 0;
};

} // namespace Panorel
