#include "Panorel/Settings/SettingsModel.h"

#include "Panorel/AppController.h"
#include "Panorel/Prefs.h"
#include "PanorelEngine/MissionControl/MissionControlCheck.h"

#include <algorithm>
#include <map>

namespace Panorel {

namespace {

const QString sectionKey = QStringLiteral("settingsSelectedSection");

constexpr std::array sectionNames{"general", "displays",   "shortcuts",
                                  "scenes",  "automation", "about"};

SettingsSection sectionNamed(const std::optional<QString> &name)
{
    for (std::size_t i = 0; i < sectionNames.size(); ++i) {
        if (name == QLatin1String(sectionNames[i]))
            return SettingsSection(i);
    }
    return SettingsSection::General;
}

} // namespace

SettingsModel::SettingsModel(AppController &controller, const AppServices &services)
    : m_controller(controller), m_services(services),
      m_selectedSection(sectionNamed(services.platform.userDefaults().text(sectionKey)))
{
    refresh();
}

void SettingsModel::setSelectedSection(SettingsSection section)
{
    m_selectedSection = section;
    m_services.platform.userDefaults().setText(sectionKey,
                                               QLatin1String(sectionNames[std::size_t(section)]));
    Q_EMIT changed();
}

void SettingsModel::setLayoutsSection(LayoutsSection section)
{
    m_layoutsSection = section;
    Q_EMIT changed();
}

void SettingsModel::refresh()
{
    m_layouts = m_controller.layouts().allLayouts();
    m_scenes = m_controller.scenes().allScenes();
    m_triggers = m_controller.triggers().all();
    m_currentConfigID = m_services.displayWatcher.configID();
    m_displays = m_services.displayWatcher.displays();
    m_usage = m_controller.usage().data();
    m_rules = readRules();
    Q_EMIT changed();
}

std::vector<RuleRow> SettingsModel::readRules() const
{
    std::map<QString, QString> names; // by bundle identifier
    const auto collect = [&](const Layout &layout) {
        for (const WindowRecord &window : layout.windows)
            names.try_emplace(window.bundleID, window.appName);
    };
    std::ranges::for_each(m_layouts, collect);
    for (const SceneRecord &scene : m_scenes)
        collect(scene.layout);
    for (const AppRule &rule : m_controller.rules().allRules())
        names.try_emplace(rule.bundleID, rule.bundleID);

    std::vector<RuleRow> rows;
    for (const auto &[bundleID, name] : names)
        rows.push_back({name, m_controller.rules().rule(bundleID)});
    std::ranges::stable_sort(rows, [](const RuleRow &one, const RuleRow &other) {
        return one.appName.compare(other.appName, Qt::CaseInsensitive) < 0;
    });
    return rows;
}

QString SettingsModel::deskName(const QString &configID) const
{
    return m_controller.layouts().deskName(configID);
}

const SceneRecord *SettingsModel::scene(const QUuid &id) const
{
    const auto found = std::ranges::find(m_scenes, id, &SceneRecord::id);
    return found == m_scenes.end() ? nullptr : &*found;
}

SceneRecord SettingsModel::addSceneFromCurrentWindows()
{
    // While displays settle the watcher still shows the desk before; the user means this one.
    DisplayWatcher &watcher = m_services.displayWatcher;
    if (watcher.isSettling())
        watcher.refresh();
    m_currentConfigID = watcher.configID();
    const auto count = m_controller.scenes().scenesFor(m_currentConfigID).size();
    SceneRecord scene =
        m_controller.addSceneFromCurrentWindows(QStringLiteral("Scene %1").arg(count + 1));
    refresh();
    return scene;
}

void SettingsModel::updateScene(const SceneRecord &scene)
{
    m_controller.scenes().update(scene);
    scenesChanged();
}

void SettingsModel::removeScene(const QUuid &id)
{
    m_controller.scenes().remove(QUuid(id)); // a copy: the caller's may be part of the list
    scenesChanged();
}

void SettingsModel::addScene(const SceneRecord &scene)
{
    m_controller.scenes().add(scene);
    scenesChanged();
}

void SettingsModel::scenesChanged()
{
    m_controller.reloadHotKeys();
    m_controller.refreshPanel();
    refresh();
}

void SettingsModel::applyScene(const QUuid &id)
{
    m_controller.applyScene(id);
    refresh();
}

void SettingsModel::addTrigger(const TriggerRecord &trigger)
{
    m_controller.triggers().add(trigger);
    triggersChanged();
}

void SettingsModel::updateTrigger(const TriggerRecord &trigger)
{
    m_controller.triggers().update(trigger);
    triggersChanged();
}

void SettingsModel::removeTrigger(const QUuid &id)
{
    m_controller.triggers().remove(QUuid(id));
    triggersChanged();
}

void SettingsModel::triggersChanged()
{
    m_controller.timeTriggers().reload();
    m_controller.calendarMonitor().start();
    refresh();
}

CalendarAuthorization SettingsModel::calendarAuthorization()
{
    return m_controller.calendarMonitor().authorization();
}

void SettingsModel::requestCalendarAccess(std::function<void(bool granted)> completion)
{
    m_controller.calendarMonitor().requestAccess(std::move(completion));
}

void SettingsModel::renameDesk(const QString &configID, const QString &name)
{
    m_controller.layouts().renameDesk(configID, name);
    m_controller.refreshPanel();
    refresh();
}

void SettingsModel::forgetDesk(const QString &configID)
{
    m_controller.forgetDesk(QString(configID));
    refresh();
}

void SettingsModel::setRule(const AppRule &rule)
{
    m_controller.rules().set(AppRule(rule));
    refresh();
}

std::optional<HotKeyCombo> SettingsModel::key(FixedAction action) const
{
    return keyOf(action, m_services.prefs);
}

void SettingsModel::setKey(FixedAction action, const std::optional<HotKeyCombo> &combo)
{
    setKeyOf(action, combo, m_services.prefs);
    m_controller.reloadHotKeys();
    refresh();
}

QStringList SettingsModel::collisions(const HotKeyCombo &combo, const QString &keyID) const
{
    QStringList names = m_services.hotKeys.collisions(combo, keyID);
    if (m_controller.isHotKeyRefused(keyID))
        names << tr("another program");
    return names;
}

QString SettingsModel::keyText(const HotKeyCombo &combo) const
{
    return m_services.platform.hotKeys().text(combo);
}

bool SettingsModel::hasPermission() const
{
    return m_controller.permission().hasAccessibility();
}

bool SettingsModel::isPermissionGrantedByUser() const
{
    return m_controller.permission().isGrantedByUser();
}

void SettingsModel::grantPermission()
{
    m_controller.permission().promptAccessibility();
}

std::optional<bool> SettingsModel::separateSpaces() const
{
    SystemPreferencesPort *preferences = m_services.platform.systemPreferences();
    return preferences ? std::optional(MissionControlCheck::separateSpacesEnabled(*preferences))
                       : std::nullopt;
}

void SettingsModel::openSpacesSettings()
{
    if (SystemPreferencesPort *preferences = m_services.platform.systemPreferences())
        MissionControlCheck::openSettings(*preferences);
}

} // namespace Panorel
