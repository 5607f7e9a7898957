#include "PanorelEngine/MissionControl/MissionControlCheck.h"

#include "PanorelPorts/SystemPreferencesPort.h"

namespace Panorel::MissionControlCheck {

bool separateSpacesEnabled(SystemPreferencesPort &port)
{
    const auto spansDisplays =
        port.value(QStringLiteral("com.apple.spaces"), QStringLiteral("spans-displays"));
    if (!spansDisplays)
        return true;
    if (const bool *flag = std::get_if<bool>(&*spansDisplays))
        return !*flag;
    const double *number = std::get_if<double>(&*spansDisplays);
    return !number || *number != 1; // 0 and 1 stand for false and true, other numbers for nothing
}

void openSettings(SystemPreferencesPort &port)
{
    port.openDesktopSettings();
}

} // namespace Panorel::MissionControlCheck
