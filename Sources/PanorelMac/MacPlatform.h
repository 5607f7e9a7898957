#pragma once

#include "PanorelMac/Applications/MacLauncher.h"
#include "PanorelMac/Applications/MacWorkspace.h"
#include "PanorelMac/Calendar/MacCalendar.h"
#include "PanorelMac/DesktopPicture/MacDesktopPicture.h"
#include "PanorelMac/Displays/MacScreens.h"
#include "PanorelMac/HotKeys/MacHotKeys.h"
#include "PanorelMac/Session/MacAlarm.h"
#include "PanorelMac/Settings/MacActivationPolicy.h"
#include "PanorelMac/Settings/MacLoginItem.h"
#include "PanorelMac/Settings/MacSystemPreferences.h"
#include "PanorelMac/Settings/MacUserDefaults.h"
#include "PanorelMac/Shell/MacShell.h"
#include "PanorelMac/Shell/MacStatusItem.h"
#include "PanorelMac/Windows/MacAccessibility.h"
#include "PanorelMac/Windows/MacWindowList.h"
#include "PanorelPorts/Platform.h"

namespace Panorel::Mac {

/// The ports of a macOS session. Needs a running QCoreApplication, whose event loop delivers what
/// the system reports.
class MacPlatform final : public Platform {
public:
    /// The updater may be null: then there are no updates.
    explicit MacPlatform(std::unique_ptr<UpdaterPort> updater) : m_updater(std::move(updater)) {}

    AccessibilityPort &accessibility() override { return m_accessibility; }
    WindowListPort &windowList() override { return m_windowList; }
    WorkspacePort &workspace() override { return m_workspace; }
    ScreensPort &screens() override { return m_screens; }
    HotKeyPort &hotKeys() override { return m_hotKeys; }
    UserDefaultsPort &userDefaults() override { return m_userDefaults; }
    LoginItemPort &loginItem() override { return m_loginItem; }
    ActivationPolicyPort &activationPolicy() override { return m_activationPolicy; }
    ShellPort &shell() override { return m_shell; }
    StatusItemPort *statusItem() override { return &m_statusItem; }
    ApplicationLauncherPort &launcher() override { return m_launcher; }
    DesktopPicturePort &desktopPicture() override { return m_desktopPicture; }
    CalendarPort &calendar() override { return m_calendar; }
    AlarmPort &alarm() override { return m_alarm; }
    SystemPreferencesPort *systemPreferences() override { return &m_systemPreferences; }
    UpdaterPort *updater() override { return m_updater.get(); }
    std::vector<LinkedLibrary> libraries() const override;

    /// The window server ends the program when it goes.
    void setLostCallback(std::function<void(const QString &reason)>) override {}

private:
    MacWorkspace m_workspace;
    MacAccessibility m_accessibility{m_workspace.ownProcessIdentifier()};
    MacWindowList m_windowList;
    MacScreens m_screens;
    MacHotKeys m_hotKeys;
    MacUserDefaults m_userDefaults;
    MacLoginItem m_loginItem;
    MacActivationPolicy m_activationPolicy;
    MacShell m_shell;
    MacStatusItem m_statusItem;
    MacLauncher m_launcher;
    MacDesktopPicture m_desktopPicture;
    MacCalendar m_calendar;
    MacAlarm m_alarm;
    MacSystemPreferences m_systemPreferences;
    const std::unique_ptr<UpdaterPort> m_updater;
};

} // namespace Panorel::Mac
