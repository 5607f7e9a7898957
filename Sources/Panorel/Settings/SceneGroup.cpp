#include "Panorel/Settings/SceneGroup.h"

#include "Panorel/Settings/SettingsModel.h"

#include <QCoreApplication>

#include <algorithm>
#include <functional>

namespace Panorel {

std::vector<SceneGroup> sceneGroups(const SettingsModel &model)
{
    std::vector<SceneGroup> groups;
    for (const SceneRecord &scene : model.scenes()) {
        auto group = std::ranges::find(groups, scene.configID, &SceneGroup::configID);
        if (group == groups.end()) {
            groups.push_back({scene.configID,
                              model.deskName(scene.configID),
                              scene.configID == model.currentConfigID(),
                              {}});
            group = groups.end() - 1;
        }
        group->scenes.push_back(scene);
    }
    std::stable_partition(groups.begin(), groups.end(), std::mem_fn(&SceneGroup::isCurrent));
    return groups;
}

QString windowCountText(std::size_t count)
{
    return count == 1 ? QCoreApplication::translate("SceneGroup", "1 window")
                      : QCoreApplication::translate("SceneGroup", "%1 windows").arg(count);
}

QString displayNamesText(const std::vector<DisplayInfo> &displays)
{
    if (displays.empty())
        return QCoreApplication::translate("SceneGroup", "No displays");
    QStringList names;
    for (const DisplayInfo &display : displays)
        names << display.name;
    return names.join(QStringLiteral(" + "));
}

} // namespace Panorel
