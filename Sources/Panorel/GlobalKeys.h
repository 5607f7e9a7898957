#pragma once

#include "Panorel/AppServices.h"
#include "Panorel/FixedAction.h"

#include <functional>
#include <set>

namespace Panorel {

class SceneStore;

/// The program's global keys: one for each fixed action that the preferences give a key, and one
/// for each scene that has its own, of whatever desk.
class GlobalKeys {
public:
    /// What the keys do.
    struct Actions {
        std::function<void(FixedAction action)> fixed;
        std::function<void(const QUuid &scene)> applyScene;
    };

    /// The scenes must outlive it. No key is registered before reload().
    GlobalKeys(const AppServices &services, const SceneStore &scenes, Actions actions);
    ~GlobalKeys();
    GlobalKeys(const GlobalKeys &) = delete;
    GlobalKeys &operator=(const GlobalKeys &) = delete;

    /// Registers the keys as the preferences and the scenes have them now. One that the platform
    /// refuses is logged.
    void reload();

    /// Whether the platform refused the key of that keyID() at the last reload(): some other
    /// program has it.
    bool isRefused(const QString &keyID) const { return m_refused.contains(keyID); }

    /// Gives all keys back to the platform until reload(), while the user types one to be recorded.
    void suspend();

private:
    struct Owner {
        QString id;
        QString name;
        QString logName;
    };

    void registerKey(const Owner &owner, const HotKeyCombo &combo,
                     const std::function<void()> &action);

    AppServices m_services;
    const SceneStore &m_scenes;
    Actions m_actions;
    std::set<QString> m_refused;
};

} // namespace Panorel
