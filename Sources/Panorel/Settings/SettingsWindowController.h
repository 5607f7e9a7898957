#pragma once

#include "Panorel/Settings/SettingsEnvironment.h"

#include <memory>

namespace Panorel {

class Prefs;
class SettingsWindow;
class UpdaterCenter;
class UserDefaultsPort;

/// Shows the settings window. It is made at the first use and kept: closing it only hides it.
class SettingsWindowController {
public:
    /// All must outlive it. Null: there is no updater.
    SettingsWindowController(SettingsModel &model, Prefs &prefs, UpdaterCenter *updater,
                             UserDefaultsPort &defaults, SettingsEnvironment environment);
    ~SettingsWindowController();

    /// Brings it to the front, at the section; absent: the one that was shown last.
    void show(std::optional<SettingsSection> section = {});

    /// Null before the first show().
    SettingsWindow *window() const { return m_window.get(); }

private:
    SettingsModel &m_model;
    Prefs &m_prefs;
    UpdaterCenter *m_updater;
    UserDefaultsPort &m_defaults;
    SettingsEnvironment m_environment;
    std::unique_ptr<SettingsWindow> m_window;
};

} // namespace Panorel
