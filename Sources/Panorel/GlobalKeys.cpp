#include "Panorel/GlobalKeys.h"

#include "Panorel/Prefs.h"
#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelEngine/HotKeys/HotKeyCenter.h"
#include "PanorelPorts/Platform.h"

namespace Panorel {

namespace {

namespace ID {
const QString stash = QStringLiteral("stash");
const QString restore = QStringLiteral("restore");
const QString saveLayout = QStringLiteral("savelayout");
const QString undo = QStringLiteral("undo");
const QString scenePrefix = QStringLiteral("scene:");
} // namespace ID

} // namespace

GlobalKeys::GlobalKeys(const AppServices &services, const SceneStore &scenes, Actions actions)
    : m_services(services), m_scenes(scenes), m_actions(std::move(actions))
{}

GlobalKeys::~GlobalKeys()
{
    for (const QString &id : {ID::stash, ID::restore, ID::saveLayout, ID::undo})
        m_services.hotKeys.unregister(id);
    m_services.hotKeys.unregisterAll(ID::scenePrefix);
}

void GlobalKeys::reload()
{
    const Prefs &prefs = m_services.prefs;
    reloadFixed(ID::stash, QStringLiteral("Stash"), prefs.stashHotKey(), m_actions.stash);
    reloadFixed(ID::restore, QStringLiteral("Restore now"), prefs.restoreHotKey(),
                m_actions.restore);
    reloadFixed(ID::saveLayout, QStringLiteral("Save layout now"), prefs.saveLayoutHotKey(),
                m_actions.saveLayout);
    reloadFixed(ID::undo, QStringLiteral("Undo last restore"), prefs.undoHotKey(), m_actions.undo);

    m_services.hotKeys.unregisterAll(ID::scenePrefix);
    for (const SceneRecord &scene : m_scenes.allScenes()) {
        if (!scene.hotKey)
            continue;
        const QString uuid = scene.id.toString(QUuid::WithoutBraces).toUpper();
        registerKey(ID::scenePrefix + uuid, scene.name, *scene.hotKey,
                    [this, id = scene.id] { m_actions.applyScene(id); });
    }
}

void GlobalKeys::reloadFixed(const QString &id, const QString &name,
                             const std::optional<HotKeyCombo> &combo,
                             const std::function<void()> &action)
{
    if (combo)
        registerKey(id, name, *combo, action);
    else
        m_services.hotKeys.unregister(id);
}

void GlobalKeys::registerKey(const QString &id, const QString &name, const HotKeyCombo &combo,
                             const std::function<void()> &action)
{
    if (!m_services.hotKeys.registerHotKey(id, name, combo, action))
        m_services.log.log(QStringLiteral("hotkey: %1 is taken, \"%2\" has no key")
                               .arg(m_services.platform.hotKeys().text(combo), name));
}

} // namespace Panorel
