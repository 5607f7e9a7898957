#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelPorts/AlarmPort.h"
#include "PanorelPorts/ApplicationPorts.h"
#include "PanorelPorts/CalendarPort.h"
#include "PanorelPorts/DesktopPicturePort.h"
#include "PanorelPorts/HotKeyPort.h"
#include "PanorelPorts/LinkedLibrary.h"
#include "PanorelPorts/ScreensPort.h"
#include "PanorelPorts/ShellPort.h"
#include "PanorelPorts/StatusItemPort.h"
#include "PanorelPorts/SystemPreferencesPort.h"
#include "PanorelPorts/UpdaterPort.h"
#include "PanorelPorts/UserDefaultsPort.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <functional>
#include <memory>
#include <vector>

namespace Panorel {

class AppLog;
class Clock;

/// The ports of the platform the program runs on. Owns them; they live as long as it does.
class Platform {
public:
    virtual ~Platform() = default;

    virtual AccessibilityPort &accessibility() = 0;
    virtual WindowListPort &windowList() = 0;
    virtual WorkspacePort &workspace() = 0;
    virtual ScreensPort &screens() = 0;
    virtual HotKeyPort &hotKeys() = 0;
    virtual UserDefaultsPort &userDefaults() = 0;
    virtual LoginItemPort &loginItem() = 0;
    virtual ActivationPolicyPort &activationPolicy() = 0;
    virtual ShellPort &shell() = 0;
    /// Null where the toolkit's own tray icon serves.
    virtual StatusItemPort *statusItem() = 0;
    virtual ApplicationLauncherPort &launcher() = 0;
    virtual DesktopPicturePort &desktopPicture() = 0;
    virtual CalendarPort &calendar() = 0;
    virtual AlarmPort &alarm() = 0;
    /// Null where the system has no settings that restoring depends on.
    virtual SystemPreferencesPort *systemPreferences() = 0;
    /// Null where updates come from elsewhere, for example with the system's packages.
    virtual UpdaterPort *updater() = 0;

    /// What the port is made with, beside Qt and the system's own; empty where there is nothing.
    virtual std::vector<LinkedLibrary> libraries() const = 0;

    /// `lost` is called on the main thread, once, when the window system has gone away and
    /// nothing can be read or moved any more; `reason` is fit for the user. From then on the
    /// ports answer as if nothing were there. Never on macOS.
    virtual void setLostCallback(std::function<void(const QString &reason)> lost) = 0;
};

/// To be called before the application object is made, which can't report that the window system
/// can't be reached. Throws as makePlatform() does.
void preparePlatform();

/// Built for the running session. Throws std::runtime_error, its text fit for the user, where the
/// window system can't be reached. The one place where the platform is chosen: exactly one
/// platform module is linked and defines it. The log and the clock outlive the platform.
std::unique_ptr<Platform> makePlatform(AppLog &log, const Clock &clock);

/// The same ports by themselves, for what needs no window system.
std::unique_ptr<UserDefaultsPort> makeUserDefaults(AppLog &log, const Clock &clock);
std::unique_ptr<LoginItemPort> makeLoginItem();

} // namespace Panorel
