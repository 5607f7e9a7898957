#pragma once

#include "Panorel/AppServices.h"
#include "Panorel/Layouts/LayoutsWindowController.h"
#include "Panorel/Onboarding/OnboardingWindowController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/SceneStudio/SceneStudioController.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/Settings/SettingsWindowController.h"
#include "Panorel/Settings/UpdaterCenter.h"

#include <QTimer>

#include <optional>

namespace Panorel {

class AppController;

/// The windows of the program beside its panel, each made when it is first opened, and the rows of
/// the panel that open them.
class AppWindows {
public:
    /// All of them must outlive it. `openPanel` shows the panel as a second start does.
    AppWindows(AppController &controller, PanelModel &panelModel, const AppServices &services,
               const PanelModel::Action &openPanel);
    ~AppWindows();
    AppWindows(const AppWindows &) = delete;
    AppWindows &operator=(const AppWindows &) = delete;

    /// The welcome window, unless the user has been through it.
    void welcome() { m_onboarding.showIfNeeded(); }

    /// Shows what the stores hold now.
    void refresh() { m_model.refresh(); }

    /// The session ends: nothing is asked any more.
    void closeWithoutAsking() { m_studio.closeWithoutAsking(); }

private:
    SettingsEnvironment environment();
    QWidget *makePane(SettingsSection section);
    void editScene(const QUuid &id);
    void saveEdited(const SceneRecord &edited);

    AppController &m_controller;
    PanelModel &m_panelModel;
    AppServices m_services;
    SettingsModel m_model;
    std::optional<UpdaterCenter> m_updater;
    SceneStudioController m_studio;
    SettingsWindowController m_settings;
    LayoutsWindowController m_layouts;
    OnboardingWindowController m_onboarding;
    QTimer m_refresh; ///< once for all changes of a moment
};

} // namespace Panorel
