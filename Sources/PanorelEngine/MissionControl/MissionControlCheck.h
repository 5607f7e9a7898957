#pragma once

namespace Panorel {

class SystemPreferencesPort;

} // namespace Panorel

/// Whether the system keeps the windows of each display to itself ("Displays have separate
/// Spaces"), with which layouts survive a change of displays best. Asked only where the platform
/// has such a setting.
namespace Panorel::MissionControlCheck {

/// The stored value, read afresh; a change is in force only after the next login. What can't be
/// understood counts as on, so that nobody is advised for nothing.
bool separateSpacesEnabled(SystemPreferencesPort &port);

/// Opens the system's page where the user can change it.
void openSettings(SystemPreferencesPort &port);

} // namespace Panorel::MissionControlCheck
