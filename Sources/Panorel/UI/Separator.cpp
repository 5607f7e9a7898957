#include "Panorel/UI/Separator.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

Separator::Separator(QWidget *parent) : QWidget(parent)
{
    setFixedHeight(Metrics::tight * 2 + 1);
}

void Separator::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(QRect(0, Metrics::tight, width(), 1), Theme::of(palette()).line);
}

} // namespace Panorel
