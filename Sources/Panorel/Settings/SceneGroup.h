#pragma once

#include "PanorelCore/Records/Models.h"

namespace Panorel {

class SettingsModel;

/// The scenes of one desk, as lists show them.
struct SceneGroup {
    QString configID;
    QString deskName;
    bool isCurrent = false;
    std::vector<SceneRecord> scenes; ///< in their stored order

    bool operator==(const SceneGroup &) const = default;
};

/// All scenes, the current desk first, then the desks in the order in which they have scenes.
std::vector<SceneGroup> sceneGroups(const SettingsModel &model);

/// "1 window", "4 windows".
QString windowCountText(std::size_t count);

/// The names of the displays joined with " + ", or that there are none.
QString displayNamesText(const std::vector<DisplayInfo> &displays);

} // namespace Panorel
