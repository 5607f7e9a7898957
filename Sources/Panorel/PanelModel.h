#pragma once

#include "PanorelCore/Records/Models.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <functional>
#include <vector>

namespace Panorel {

/// What the menu panel shows, and the actions it offers. AppController alone writes the values
/// and receives the actions; a view draws them and listens to changed().
class PanelModel : public QObject {
    Q_OBJECT

public:
    using Action = std::function<void()>;

    const QString &deskName() const { return m_deskName; }
    qint64 windowCount() const { return m_windowCount; }       ///< in the desk's saved layout
    const QString &lastAction() const { return m_lastAction; } ///< the last action's result
    bool hasPermission() const { return m_hasPermission; }
    /// Where not, a window manager is what is missing.
    bool isPermissionGrantedByUser() const { return m_isPermissionGrantedByUser; }
    const std::vector<DisplayInfo> &displays() const { return m_displays; }
    const std::vector<SceneRecord> &scenes() const { return m_scenes; } ///< of this desk
    bool isStashed() const { return m_isStashed; }
    bool canUndo() const { return m_canUndo; } ///< the last restore can be undone

    /// The displays' names, joined with " + ".
    QString displayNames() const;

    void setDeskName(const QString &name) { set(m_deskName, name); }
    void setWindowCount(qint64 count) { set(m_windowCount, count); }
    void setLastAction(const QString &action) { set(m_lastAction, action); }
    void setHasPermission(bool granted) { set(m_hasPermission, granted); }
    void setIsPermissionGrantedByUser(bool isByUser) { set(m_isPermissionGrantedByUser, isByUser); }
    void setDisplays(const std::vector<DisplayInfo> &displays) { set(m_displays, displays); }
    void setScenes(const std::vector<SceneRecord> &scenes) { set(m_scenes, scenes); }
    void setIsStashed(bool stashed) { set(m_isStashed, stashed); }
    void setCanUndo(bool possible) { set(m_canUndo, possible); }

    // What the panel's rows do. A row whose action is empty is not offered.
    Action onRestoreNow;
    Action onUndo;
    Action onStash;
    std::function<void(const QUuid &scene)> onApplyScene;
    Action onSaveScene;
    Action onOpenLayouts;
    Action onOpenSettings;
    Action onOpenShortcuts;
    Action onCheckForUpdates;
    Action onGrantPermission;
    Action onQuit;
    /// The panel is about to open: bring the values up to date.
    Action onOpening;

Q_SIGNALS:
    /// A value was set to another one.
    void changed();

private:
    template <typename Value> void set(Value &member, const Value &value)
    {
        if (member == value)
            return;
        member = value;
        Q_EMIT changed();
    }

    QString m_deskName = QStringLiteral("Desk setup");
    qint64 m_windowCount = 0;
    QString m_lastAction;
    bool m_hasPermission = false;
    bool m_isPermissionGrantedByUser = true;
    std::vector<DisplayInfo> m_displays;
    std::vector<SceneRecord> m_scenes;
    bool m_isStashed = false;
    bool m_canUndo = false;
};

} // namespace Panorel
