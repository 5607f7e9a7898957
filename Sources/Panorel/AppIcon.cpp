#include "Panorel/AppIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace Panorel {

QIcon appIcon()
{
    QSvgRenderer renderer(QStringLiteral(":/icons/org.panorel.Panorel.svg"));
    QIcon icon;
    for (const int size : {16, 20, 22, 24, 32, 44, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace Panorel
