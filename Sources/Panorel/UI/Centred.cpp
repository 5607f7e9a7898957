#include "Panorel/UI/Centred.h"

#include <QHBoxLayout>

namespace Panorel {

QHBoxLayout *centred(QWidget *widget)
{
    constexpr int nearlyAll = 1000; // what it can't take is left for both sides
    auto *line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(widget, nearlyAll);
    line->addStretch(1);
    return line;
}

} // namespace Panorel
