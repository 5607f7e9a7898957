#pragma once

#include "PanorelPorts/Platform.h"
#include "PanorelX11/Applications/GioLauncher.h"
#include "PanorelX11/Calendar/DesktopCalendar.h"
#include "PanorelX11/Connection/EventConnection.h"
#include "PanorelX11/DesktopPicture/X11DesktopPicture.h"
#include "PanorelX11/Displays/X11Screens.h"
#include "PanorelX11/HotKeys/X11HotKeys.h"
#include "PanorelX11/Session/WallClockAlarm.h"
#include "PanorelX11/Settings/IniUserDefaults.h"
#include "PanorelX11/Settings/NoActivationPolicy.h"
#include "PanorelX11/Settings/XdgLoginItem.h"
#include "PanorelX11/Shell/X11Shell.h"
#include "PanorelX11/Windows/WindowSystem.h"

namespace Panorel::X11 {

/// The ports of an X11 session. Needs a running QCoreApplication, whose event loop delivers what
/// the server reports.
class X11Platform final : public Platform {
public:
    /// Throws std::runtime_error where there is no X server.
    /// Both outlive it.
    X11Platform(AppLog &log, const Clock &clock);
    ~X11Platform() override;

    AccessibilityPort &accessibility() override { return m_windows.accessibility(); }
    WindowListPort &windowList() override { return m_windows.windowList(); }
    WorkspacePort &workspace() override { return m_windows.workspace(); }
    ScreensPort &screens() override { return m_screens; }
    HotKeyPort &hotKeys() override { return m_hotKeys; }
    UserDefaultsPort &userDefaults() override { return m_userDefaults; }
    LoginItemPort &loginItem() override { return m_loginItem; }
    ActivationPolicyPort &activationPolicy() override { return m_activationPolicy; }
    ShellPort &shell() override { return m_shell; }
    StatusItemPort *statusItem() override { return nullptr; }
    ApplicationLauncherPort &launcher() override { return m_launcher; }
    DesktopPicturePort &desktopPicture() override { return m_desktopPicture; }
    CalendarPort &calendar() override { return m_calendar; }
    AlarmPort &alarm() override { return m_alarm; }
    SystemPreferencesPort *systemPreferences() override { return nullptr; }
    UpdaterPort *updater() override { return nullptr; }

    std::vector<LinkedLibrary> libraries() const override;
    void setLostCallback(std::function<void(const QString &reason)> lost) override
    {
        m_events.setLostCallback(std::move(lost));
    }

private:
    EventConnection m_events;
    X11Screens m_screens;
    X11HotKeys m_hotKeys;
    WindowSystem m_windows;
    IniUserDefaults m_userDefaults;
    XdgLoginItem m_loginItem;
    NoActivationPolicy m_activationPolicy;
    X11Shell m_shell{m_events.connection()};
    GioLauncher m_launcher;
    X11DesktopPicture m_desktopPicture;
    DesktopCalendar m_calendar;
    WallClockAlarm m_alarm;
};

} // namespace Panorel::X11
