#include "Panorel/Settings/SettingsWindowController.h"

#include "Panorel/Settings/SettingsWindow.h"
#include "Panorel/UI/WindowFrame.h"

namespace Panorel {

SettingsWindowController::SettingsWindowController(SettingsModel &model, Prefs &prefs,
                                                   UpdaterCenter *updater,
                                                   UserDefaultsPort &defaults,
                                                   SettingsEnvironment environment)
    : m_model(model), m_prefs(prefs), m_updater(updater), m_defaults(defaults),
      m_environment(std::move(environment))
{}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show(std::optional<SettingsSection> section)
{
    if (section)
        m_model.setSelectedSection(*section);
    m_model.refresh();
    if (!m_window) {
        m_window = std::make_unique<SettingsWindow>(m_model, m_prefs, m_updater, m_environment);
        new WindowFrame(*m_window, m_defaults, QStringLiteral("settings"), {900, 620});
    }
    if (m_window->isMinimized())
        m_window->showNormal();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

} // namespace Panorel
