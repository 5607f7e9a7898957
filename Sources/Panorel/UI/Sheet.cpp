#include "Panorel/UI/Sheet.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>

namespace Panorel {

Sheet::Sheet(int width, QWidget *parent) : QDialog(parent), m_width(width)
{
    setAttribute(Qt::WA_DeleteOnClose);
}

void Sheet::setVisible(bool isVisible)
{
    if (isVisible)
        fit(); // before it is placed over its window
    QDialog::setVisible(isVisible);
}

bool Sheet::event(QEvent *event)
{
    const bool isHandled = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest)
        fit();
    return isHandled;
}

void Sheet::fit()
{
    if (!layout())
        return;
    const int width = std::max(m_width, layout()->totalMinimumSize().width());
    const QSize size(width, layout()->totalHeightForWidth(width));
    setFixedSize(size.boundedTo(screen()->availableSize()));
}

} // namespace Panorel
