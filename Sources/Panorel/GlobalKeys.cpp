#include "Panorel/GlobalKeys.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelEngine/HotKeys/HotKeyCenter.h"
#include "PanorelPorts/Platform.h"

namespace Panorel {

GlobalKeys::GlobalKeys(const AppServices &services, const SceneStore &scenes, Actions actions)
    : m_services(services), m_scenes(scenes), m_actions(std::move(actions))
{}

GlobalKeys::~GlobalKeys()
{
    suspend();
}

void GlobalKeys::suspend()
{
    for (const FixedAction action : fixedActions)
        m_services.hotKeys.unregister(keyID(action));
    m_services.hotKeys.unregisterAll(sceneKeyPrefix);
}

void GlobalKeys::reload()
{
    m_refused.clear();
    for (const FixedAction action : fixedActions) {
        if (const auto combo = keyOf(action, m_services.prefs))
            registerKey({keyID(action), nameOf(action), logNameOf(action)}, *combo,
                        [this, action] { m_actions.fixed(action); });
        else
            m_services.hotKeys.unregister(keyID(action));
    }
    m_services.hotKeys.unregisterAll(sceneKeyPrefix);
    for (const SceneRecord &scene : m_scenes.allScenes()) {
        if (scene.hotKey)
            registerKey({keyID(scene), scene.name, scene.name}, *scene.hotKey,
                        [this, id = scene.id] { m_actions.applyScene(id); });
    }
}

void GlobalKeys::registerKey(const Owner &owner, const HotKeyCombo &combo,
                             const std::function<void()> &action)
{
    if (m_services.hotKeys.registerHotKey(owner.id, owner.name, combo, action))
        return;
    m_refused.insert(owner.id);
    m_services.log.log(QStringLiteral("hotkey: %1 is taken, \"%2\" has no key")
                           .arg(m_services.platform.hotKeys().text(combo), forLog(owner.logName)));
}

} // namespace Panorel
