#include "Panorel/PanelModel.h"

namespace Panorel {

QString PanelModel::displayNames() const
{
    QStringList names;
    for (const DisplayInfo &display : m_displays)
        names.append(display.name);
    return names.join(QStringLiteral(" + "));
}

} // namespace Panorel
