#pragma once

#include "Panorel/AppController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

namespace Panorel {

inline constexpr Rect leftPlace{100, 100, 400, 300};
inline constexpr Rect rightPlace{2000, 200, 500, 400};
inline constexpr Rect clampedPlace{900, 200, 500, 400};

/// The program on an in-memory desktop: two displays, an editor on the left one and a mail
/// program on the right one.
struct Program {
    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    InMemoryPlatform platform;
    InMemoryDesktop &desktop = platform.desktop;
    ProcessIdentifier editorPID = 0;
    ProcessIdentifier mailPID = 0;
    int editor = 0;
    int mail = 0;
    PanelModel panel;
    std::unique_ptr<Prefs> prefs;
    std::unique_ptr<DisplayWatcher> watcher;
    HotKeyCenter hotKeys{platform.keys};
    std::unique_ptr<AppController> controller;

    explicit Program(bool isTrusted = true)
    {
        desktop.trusted = isTrusted;
        platform.display.plug(QStringLiteral("Built-in"), {0, 0, 1440, 900}, 0);
        plugDock();
        platform.alarms = &scheduler;
        editorPID = desktop.launch(QStringLiteral("editor"), QStringLiteral("Editor"));
        mailPID = desktop.launch(QStringLiteral("mail"), QStringLiteral("Mail"));
        editor = desktop.open(editorPID, QStringLiteral("Notes"), leftPlace);
        mail = desktop.open(mailPID, QStringLiteral("Inbox"), rightPlace);
        start();
    }

    /// Again: it ends and starts anew.
    void start()
    {
        controller.reset();
        prefs = std::make_unique<Prefs>(platform.defaults, platform.activationPolicy(),
                                        platform.loginItem());
        watcher = std::make_unique<DisplayWatcher>(platform.display, scheduler, dir.log);
        controller = std::make_unique<AppController>(panel, services());
    }
    AppServices services()
    {
        return {platform, *watcher, hotKeys, *prefs, scheduler, dir.log, dir.clock};
    }
    void plugDock() { platform.display.plug(QStringLiteral("Dock"), {1440, 0, 1920, 1080}, 9); }
    void dock()
    {
        plugDock();
        platform.display.announceChange();
    }
    /// The window manager pushes the dock's window onto what is left.
    void undock()
    {
        platform.display.unplug(QStringLiteral("Dock"));
        desktop.window(mail).frame = clampedPlace;
        platform.display.announceChange();
    }
    Rect mailFrame() { return desktop.window(mail).frame; }
    std::vector<Layout> layouts() { return LayoutStore(dir.log, dir.clock).allLayouts(); }
    Rect learnedMailFrame() { return layouts().at(0).windows.at(0).frame; }
    UsageData usage() { return UsageStore(dir.log, dir.clock).data(); }
    bool logged(const char *line) { return dir.logged().contains(QString::fromUtf8(line)); }
};

} // namespace Panorel
