#pragma once

#include "Panorel/AppServices.h"
#include "Panorel/FixedAction.h"
#include "PanorelCore/Records/Models.h"
#include "PanorelCore/Triggers/TriggerRecord.h"
#include "PanorelPorts/CalendarPort.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace Panorel {

class AppController;

/// The panes of the settings window, in order.
enum class SettingsSection { General, Displays, Shortcuts, Scenes, Automation, About };

/// The tabs of the layouts window, in order.
enum class LayoutsSection { Desks, Scenes, Rules };

/// What was decided for an application, which may be nothing.
struct RuleRow {
    QString appName;
    AppRule rule;

    bool operator==(const RuleRow &) const = default;
};

/// What the settings and the layouts window show, and the only way in which their views change
/// anything but a preference. Lists are copies, as of the last refresh(). Every change is stored
/// and in force when the call returns, and the lists are fresh. Main thread only.
class SettingsModel : public QObject {
    Q_OBJECT

public:
    /// Both must outlive it.
    SettingsModel(AppController &controller, const AppServices &services);

    /// The pane that is open, remembered from one launch to the next.
    SettingsSection selectedSection() const { return m_selectedSection; }
    void setSelectedSection(SettingsSection section);
    LayoutsSection layoutsSection() const { return m_layoutsSection; }
    void setLayoutsSection(LayoutsSection section);

    /// Reads everything anew.
    void refresh();

    const std::vector<Layout> &layouts() const { return m_layouts; }          ///< of every desk
    const std::vector<SceneRecord> &scenes() const { return m_scenes; }       ///< of every desk
    const std::vector<TriggerRecord> &triggers() const { return m_triggers; } ///< also those off
    const QString &currentConfigID() const { return m_currentConfigID; }
    const std::vector<DisplayInfo> &displays() const { return m_displays; } ///< connected now
    const UsageData &usage() const { return m_usage; }

    /// Every application of any layout, scene or rule, by name.
    const std::vector<RuleRow> &rules() const { return m_rules; }

    /// As the desk is called where it is known, otherwise "Desk setup".
    QString deskName(const QString &configID) const;
    /// Null for a scene that does not exist.
    const SceneRecord *scene(const QUuid &id) const;

    // Scenes.
    /// "Scene N", of the windows there are now.
    SceneRecord addSceneFromCurrentWindows();
    /// Its name, options, picture, key or windows. Nothing where it does not exist any more.
    void updateScene(const SceneRecord &scene);
    void removeScene(const QUuid &id);
    /// The way back from removeScene(): it is the last of the list then.
    void addScene(const SceneRecord &scene);
    void applyScene(const QUuid &id);

    // Triggers.
    void addTrigger(const TriggerRecord &trigger);
    void updateTrigger(const TriggerRecord &trigger);
    void removeTrigger(const QUuid &id);
    CalendarAuthorization calendarAuthorization();
    /// The answer comes on the main thread, possibly within the call.
    void requestCalendarAccess(std::function<void(bool granted)> completion);

    // Desks and rules.
    void renameDesk(const QString &configID, const QString &name);
    void forgetDesk(const QString &configID);
    void setRule(const AppRule &rule);

    // Keys of the fixed actions; a scene's is part of the scene.
    std::optional<HotKeyCombo> key(FixedAction action) const;
    void setKey(FixedAction action, const std::optional<HotKeyCombo> &combo);
    /// Who else has the combination of the key that is known by that keyID(): the names of other
    /// actions and scenes, or "another program".
    QStringList collisions(const HotKeyCombo &combo, const QString &keyID) const;
    /// As this platform's users write it.
    QString keyText(const HotKeyCombo &combo) const;

    // The system.
    bool hasPermission() const;
    /// Where not, a window manager is what is missing.
    bool isPermissionGrantedByUser() const;
    void grantPermission();
    /// Whether displays have separate Spaces; absent where there is no such thing.
    std::optional<bool> separateSpaces() const;
    void openSpacesSettings();

Q_SIGNALS:
    /// The lists were read anew, or another section is shown.
    void changed();

private:
    std::vector<RuleRow> readRules() const;
    void scenesChanged();
    void triggersChanged();

    AppController &m_controller;
    AppServices m_services;
    SettingsSection m_selectedSection = SettingsSection::General;
    LayoutsSection m_layoutsSection = LayoutsSection::Desks;
    std::vector<Layout> m_layouts;
    std::vector<SceneRecord> m_scenes;
    std::vector<TriggerRecord> m_triggers;
    QString m_currentConfigID;
    std::vector<DisplayInfo> m_displays;
    UsageData m_usage;
    std::vector<RuleRow> m_rules;
};

} // namespace Panorel
