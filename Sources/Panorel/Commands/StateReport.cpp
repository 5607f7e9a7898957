#include "Panorel/Commands/StateReport.h"

#include "Panorel/ProgramStores.h"
#include "PanorelCore/JSON/PanorelJSON.h"

namespace Panorel {

namespace {

QString text(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QJsonArray names(const std::vector<DisplayInfo> &displays)
{
    QJsonArray names;
    for (const DisplayInfo &display : displays)
        names.append(display.name);
    return names;
}

} // namespace

StateReport::StateReport(const ProgramStores &stores, const QString &configID,
                         std::function<QString(const HotKeyCombo &)> keyText)
    : m_stores(stores), m_configID(configID), m_keyText(std::move(keyText))
{}

QJsonObject StateReport::scene(const SceneRecord &scene) const
{
    QJsonObject object{
        {QStringLiteral("id"), text(scene.id)},
        {QStringLiteral("name"), scene.name},
        {QStringLiteral("desk"), scene.configID},
        {QStringLiteral("deskName"), m_stores.layouts.deskName(scene.configID)},
        {QStringLiteral("isForCurrentDesk"), scene.configID == m_configID},
        {QStringLiteral("isLastApplied"), m_stores.scenes.lastApplied(scene.configID) == scene.id},
        {QStringLiteral("windows"), qint64(scene.layout.windows.size())},
        {QStringLiteral("opensMissingApps"), scene.opensMissingApps},
        {QStringLiteral("hidesOtherApps"), scene.hidesOtherApps},
    };
    if (scene.hotKey)
        object.insert(QStringLiteral("key"), m_keyText(*scene.hotKey));
    if (scene.wallpaperPath)
        object.insert(QStringLiteral("picture"), *scene.wallpaperPath);
    return object;
}

QJsonObject StateReport::scenes() const
{
    QJsonArray list;
    for (const SceneRecord &each : m_stores.scenes.allScenes())
        list.append(scene(each));
    return {{QStringLiteral("scenes"), list}};
}

QJsonObject StateReport::desks() const
{
    QJsonArray list;
    for (const Layout &layout : m_stores.layouts.allLayouts()) {
        list.append(QJsonObject{
            {QStringLiteral("id"), layout.configID},
            {QStringLiteral("name"), layout.name},
            {QStringLiteral("displays"), names(layout.displays)},
            {QStringLiteral("isCurrent"), layout.configID == m_configID},
            {QStringLiteral("windows"), qint64(layout.windows.size())},
            {QStringLiteral("savedAt"), PanorelJSON::iso().string(layout.savedAt)},
        });
    }
    return {{QStringLiteral("desks"), list}};
}

QJsonObject StateReport::rules() const
{
    QJsonArray list;
    for (const AppRule &rule : m_stores.rules.allRules())
        list.append(ValueCoding::write(rule));
    return {{QStringLiteral("rules"), list}};
}

QJsonObject StateReport::triggers() const
{
    QJsonArray list;
    for (const TriggerRecord &trigger : m_stores.triggers.all()) {
        QJsonObject object{
            {QStringLiteral("id"), text(trigger.id)},
            {QStringLiteral("enabled"), trigger.enabled},
            {QStringLiteral("when"), trigger.kind.description()},
            {QStringLiteral("scene"), text(trigger.sceneID)},
        };
        if (const SceneRecord *scene = m_stores.scenes.scene(trigger.sceneID))
            object.insert(QStringLiteral("sceneName"), scene->name);
        list.append(object);
    }
    return {{QStringLiteral("triggers"), list}};
}

QJsonObject StateReport::currentDesk(const std::vector<DisplayInfo> &displays) const
{
    const Layout *layout = m_stores.layouts.layoutFor(m_configID);
    return {{QStringLiteral("id"), m_configID},
            {QStringLiteral("name"), m_stores.layouts.deskName(m_configID)},
            {QStringLiteral("displays"), names(displays)},
            {QStringLiteral("windows"), layout ? qint64(layout->windows.size()) : 0}};
}

QJsonObject StateReport::counts(const SavedState &state)
{
    return {{QStringLiteral("desks"), qint64(state.layouts.layouts.size())},
            {QStringLiteral("scenes"), qint64(state.scenes.scenes.size())},
            {QStringLiteral("rules"), qint64(state.rules.size())},
            {QStringLiteral("triggers"), qint64(state.triggers.size())}};
}

} // namespace Panorel
