#include "Panorel/AppWindows.h"

#include "Panorel/AppController.h"
#include "Panorel/Prefs.h"
#include "Panorel/Settings/AutomationPane.h"
#include "Panorel/Settings/ScenesPane.h"

namespace Panorel {

AppWindows::AppWindows(AppController &controller, PanelModel &panelModel,
                       const AppServices &services, const PanelModel::Action &openPanel)
    : m_controller(controller), m_panelModel(panelModel), m_services(services),
      m_model(controller, services), m_studio(services.platform.workspace(), services.log,
                                              services.clock, services.platform.userDefaults()),
      m_settings(m_model, services.prefs,
                 services.platform.updater() ? &m_updater.emplace(*services.platform.updater())
                                             : nullptr,
                 services.platform.userDefaults(), environment()),
      m_layouts(m_model, services.platform.userDefaults(),
                [this](const QUuid &scene) { editScene(scene); }),
      m_onboarding(services.prefs, controller.permission(), services.scheduler,
                   {.saveScene = [this] { return m_model.addSceneFromCurrentWindows().name; },
                    .openPanel = openPanel,
                    .openShortcuts = [this] { m_settings.show(SettingsSection::Shortcuts); },
                    .isInMenuBar = services.platform.statusItem() != nullptr})
{
    m_panelModel.onOpenSettings = [this] { m_settings.show(); };
    m_panelModel.onOpenShortcuts = [this] { m_settings.show(SettingsSection::Shortcuts); };
    m_panelModel.onOpenLayouts = [this] { m_layouts.show(); };
    if (m_updater)
        m_panelModel.onCheckForUpdates = [this] { m_updater->checkForUpdates(); };
    // What the panel shows anew, another desk for example, may be on show in a window as well.
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(0);
    QObject::connect(&m_panelModel, &PanelModel::changed, &m_refresh, qOverload<>(&QTimer::start));
    QObject::connect(&m_refresh, &QTimer::timeout, &m_refresh, [this] { m_model.refresh(); });
}

AppWindows::~AppWindows()
{
    m_panelModel.onOpenSettings = {};
    m_panelModel.onOpenShortcuts = {};
    m_panelModel.onOpenLayouts = {};
    m_panelModel.onCheckForUpdates = {};
}

SettingsEnvironment AppWindows::environment()
{
    SettingsEnvironment environment;
    environment.takeSettleSeconds = [this] { m_controller.takeSettleSeconds(); };
    environment.suspendHotKeys = [this] { m_controller.suspendHotKeys(); };
    environment.resumeHotKeys = [this] { m_controller.reloadHotKeys(); };
    environment.keyCodeOf = [this](quint32 nativeScanCode, quint32 nativeVirtualKey) {
        return m_services.platform.hotKeys().keyCodeOf(nativeScanCode, nativeVirtualKey);
    };
    environment.isCommandReportedAsControl =
        m_services.platform.hotKeys().isCommandReportedAsControl();
    environment.makePane = [this](SettingsSection section) { return makePane(section); };
    environment.hasDock = m_services.platform.activationPolicy().hasDock();
    environment.libraries = m_services.platform.libraries();
    return environment;
}

QWidget *AppWindows::makePane(SettingsSection section)
{
    if (section == SettingsSection::Automation)
        return new AutomationPane(m_model);
    return new ScenesPane(
        m_model, [this](const QUuid &scene) { editScene(scene); }, environment());
}

void AppWindows::editScene(const QUuid &id)
{
    if (const SceneRecord *scene = m_model.scene(id))
        m_studio.open(*scene, [this](const SceneRecord &edited) { saveEdited(edited); });
}

/// The scene's name or key may have changed while its windows were edited, and it may be gone: what
/// the user has just saved is not lost then.
void AppWindows::saveEdited(const SceneRecord &edited)
{
    const SceneRecord *stored = m_model.scene(edited.id);
    if (!stored)
        return m_model.addScene(edited);
    SceneRecord scene = *stored;
    scene.layout = edited.layout;
    m_model.updateScene(scene);
}

} // namespace Panorel
