#include "Panorel/UI/TabOrder.h"

#include <QLayout>
#include <QScrollArea>
#include <QWidget>

namespace Panorel {

namespace {

void collect(QLayout *layout, std::vector<QWidget *> &controls)
{
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        QWidget *widget = item->widget();
        if (widget && widget->focusPolicy() & Qt::TabFocus)
            controls.push_back(widget);
        const auto *scrolling = qobject_cast<QScrollArea *>(widget);
        QWidget *within = scrolling ? scrolling->widget() : widget;
        collect(within ? within->layout() : item->layout(), controls);
    }
}

} // namespace

void orderTabsByLayout(QWidget &root)
{
    std::vector<QWidget *> controls;
    collect(root.layout(), controls);
    for (std::size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}

} // namespace Panorel
