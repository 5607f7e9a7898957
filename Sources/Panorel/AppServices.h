#pragma once

#include "PanorelCore/Clock.h"

namespace Panorel {

class AppLog;
class DisplayWatcher;
class HotKeyCenter;
class Platform;
class Prefs;
class Scheduler;

/// What the program is built on: one of each, made by main, outliving everything that is handed
/// them.
struct AppServices {
    Platform &platform;
    DisplayWatcher &displayWatcher;
    HotKeyCenter &hotKeys;
    Prefs &prefs;
    Scheduler &scheduler;
    AppLog &log;
    const Clock &clock;
};

} // namespace Panorel
