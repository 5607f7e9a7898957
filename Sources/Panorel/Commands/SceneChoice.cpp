#include "Panorel/Commands/SceneChoice.h"

#include <QStringList>

namespace Panorel {

namespace {

using Candidates = std::vector<const SceneRecord *>;

template <typename Condition>
Candidates findAll(const std::vector<SceneRecord> &scenes, Condition condition)
{
    Candidates found;
    for (const SceneRecord &scene : scenes) {
        if (condition(scene))
            found.push_back(&scene);
    }
    return found;
}

QString idsOf(const Candidates &scenes)
{
    QStringList ids;
    for (const SceneRecord *scene : scenes)
        ids.append(scene->id.toString(QUuid::WithoutBraces).toUpper());
    return ids.join(QStringLiteral(", "));
}

} // namespace

SceneChoice::SceneChoice(const std::vector<SceneRecord> &scenes, const QString &nameOrID,
                         const QString &configID)
{
    Candidates found =
        findAll(scenes, [&](const SceneRecord &scene) { return scene.name == nameOrID; });
    if (found.size() > 1) {
        const Candidates here = findAll(scenes, [&](const SceneRecord &scene) {
            return scene.name == nameOrID && scene.configID == configID;
        });
        if (!here.empty())
            found = here;
    }
    if (found.empty()) {
        found = findAll(scenes, [&](const SceneRecord &scene) {
            return scene.id.toString(QUuid::WithoutBraces).compare(nameOrID, Qt::CaseInsensitive)
                   == 0;
        });
        if (!found.empty())
            found = {found.front()}; // as everywhere, the first counts
    }
    if (found.size() == 1)
        m_scene = found.front();
    else if (found.empty())
        m_reason = QStringLiteral("there is no scene “%1”").arg(nameOrID);
    else
        m_reason = QStringLiteral("there are %1 scenes “%2”, say which by its id: %3")
                       .arg(QString::number(found.size()), nameOrID, idsOf(found));
}

} // namespace Panorel
