#include "Panorel/UI/Sidebar.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SidebarEntry.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace Panorel {

Sidebar::Sidebar(const QString &name, QWidget *parent)
    : QWidget(parent), m_layout(new QVBoxLayout(this))
{
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_layout->setContentsMargins(Metrics::small, Metrics::medium, Metrics::small, Metrics::medium);
    m_layout->setSpacing(Metrics::tight / 2);
    m_layout->addStretch();
}

void Sidebar::add(Symbol symbol, const QString &name)
{
    auto *entry = new SidebarEntry(symbol, name);
    const int index = int(m_entries.size());
    m_layout->insertWidget(index, entry);
    m_entries.push_back(entry);
    connect(entry, &SidebarEntry::clicked, this, [this, index] { choose(index); });
    setCurrent(m_current);
}

void Sidebar::setCurrent(int index)
{
    m_current = index;
    for (int i = 0; i < int(m_entries.size()); ++i) {
        m_entries[i]->setChecked(i == index);
        m_entries[i]->setFocusPolicy(i == index ? Qt::TabFocus : Qt::NoFocus);
    }
}

void Sidebar::choose(int index)
{
    if (index == m_current)
        return;
    const bool hadFocus = m_entries[m_current]->hasFocus();
    setCurrent(index);
    if (hadFocus)
        m_entries[index]->setFocus(Qt::TabFocusReason);
    Q_EMIT chosen(index);
}

QSize Sidebar::sizeHint() const
{
    constexpr int usualWidth = 190;
    const QMargins margins = m_layout->contentsMargins();
    int width = usualWidth;
    for (const SidebarEntry *entry : m_entries)
        width = std::max(width, entry->sizeHint().width() + margins.left() + margins.right());
    return {width, m_layout->sizeHint().height()};
}

void Sidebar::keyPressEvent(QKeyEvent *event)
{
    const int last = int(m_entries.size()) - 1;
    switch (event->key()) {
    case Qt::Key_Up:
        return choose(std::max(m_current - 1, 0));
    case Qt::Key_Down:
        return choose(std::min(m_current + 1, last));
    case Qt::Key_Home:
        return choose(0);
    case Qt::Key_End:
        return choose(last);
    default:
        QWidget::keyPressEvent(event);
    }
}

void Sidebar::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), theme.card);
    const int edge = isRightToLeft() ? 0 : width() - 1;
    painter.fillRect(QRect(edge, 0, 1, height()), theme.line);
}

} // namespace Panorel
