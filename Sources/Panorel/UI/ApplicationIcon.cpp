#include "Panorel/UI/ApplicationIcon.h"

namespace Panorel {

QIcon applicationIcon(const QString &bundleID)
{
    const QIcon icon = QIcon::fromTheme(bundleID);
    return icon.isNull() ? QIcon::fromTheme(bundleID.section(u'.', -1).toLower()) : icon;
}

} // namespace Panorel
