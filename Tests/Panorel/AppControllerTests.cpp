#include "Panorel/AppController.h"

#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString layoutsFile = QStringLiteral("layouts.json");
constexpr Rect leftPlace{100, 100, 400, 300};
constexpr Rect rightPlace{2000, 200, 500, 400};
constexpr Rect clampedPlace{900, 200, 500, 400};

/// The program on an in-memory desktop: two displays, an editor on the left one and a mail
/// program on the right one.
struct Program {
    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    InMemoryPlatform platform;
    InMemoryDesktop &desktop = platform.desktop;
    int editor = 0;
    int mail = 0;
    PanelModel panel;
    std::unique_ptr<Prefs> prefs;
    std::unique_ptr<DisplayWatcher> watcher;
    HotKeyCenter hotKeys{platform.keys};
    std::unique_ptr<AppController> controller;

    Program()
    {
        platform.display.plug(QStringLiteral("Built-in"), {0, 0, 1440, 900}, 0);
        plugDock();
        editor = desktop.open(desktop.launch(QStringLiteral("editor"), QStringLiteral("Editor")),
                              QStringLiteral("Notes"), leftPlace);
        mail = desktop.open(desktop.launch(QStringLiteral("mail"), QStringLiteral("Mail")),
                            QStringLiteral("Inbox"), rightPlace);
    }
    ~Program() { end(); }

    AppController &start()
    {
        prefs = std::make_unique<Prefs>(platform.defaults, platform.activationPolicy(),
                                        platform.loginItem());
        watcher = std::make_unique<DisplayWatcher>(platform.display, scheduler, dir.log);
        controller = std::make_unique<AppController>(
            panel, AppServices{platform, *watcher, hotKeys, *prefs, scheduler, dir.log, dir.clock});
        return *controller;
    }
    void end()
    {
        controller.reset();
        watcher.reset();
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
    bool logged(const QString &line) { return dir.logged().contains(line); }
};

} // namespace

class AppControllerTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDeskComesBackAfterUndockingAndDocking()
    {
        Program program;
        program.start();
        QCOMPARE(program.panel.windowCount(), 2);
        program.scheduler.advance(10min);
        program.undock();
        program.scheduler.advance(10min); // learns the laptop on its own
        QCOMPARE(program.layouts().size(), 2u);
        program.dock();
        program.scheduler.advance(1499ms);
        QVERIFY(program.mailFrame() == clampedPlace);
        program.scheduler.advance(1ms);
        QVERIFY(program.mailFrame() == rightPlace);
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 2 windows"));
        QVERIFY(program.logged(
            QStringLiteral("restore report: 2/2 restored, 0 failed, 0 skipped, 0.00s")));
        const UsageData usage = UsageStore(program.dir.log, program.dir.clock).data();
        QCOMPARE(usage.restores, 1);
        QCOMPARE(usage.windowsPutBack, 2);
        QCOMPARE(usage.deskIDs.size(), 2u);
    }

    void learningWritesOnlyWhatHasChanged()
    {
        Program program;
        program.start();
        QVERIFY(
            program.logged(QStringLiteral("learned layout: 2 windows for Desk setup [Default]")));
        const QByteArray first = program.dir.read(layoutsFile);
        program.scheduler.advance(90s);
        QCOMPARE(program.dir.read(layoutsFile), first);
        program.desktop.window(program.mail).frame = {1500, 10, 500, 400};
        program.scheduler.advance(89s);
        QCOMPARE(program.dir.read(layoutsFile), first);
        program.scheduler.advance(1s);
        QVERIFY(program.dir.read(layoutsFile) != first);
        QVERIFY(program.layouts().at(0).displays.size() == 2);
    }

    void anEmptyDeskIsNeverLearned()
    {
        Program program;
        program.start();
        const QByteArray before = program.dir.read(layoutsFile);
        program.desktop.close(program.editor);
        program.desktop.close(program.mail);
        program.scheduler.advance(90s);
        program.controller->saveLayoutNow();
        QCOMPARE(program.dir.read(layoutsFile), before);
    }

    void nothingIsLearnedWhileItMayNotBeTheUsersDoing_data()
    {
        using Act = std::function<void(Program &)>;
        QTest::addColumn<Act>("act");
        QTest::newRow("displays settle") << Act([](Program &program) {
            program.watcher->setSettleSeconds(120);
            program.platform.display.announceChange(); // off and on again, as monitors sleep
        });
        QTest::newRow("the change's event is still unread") << Act([](Program &program) {
            program.watcher->setSettleSeconds(120);
            program.platform.display.unplug(QStringLiteral("Dock"));
        });
        QTest::newRow("a display has moved, its event unread") << Act([](Program &program) {
            program.watcher->setSettleSeconds(120);
            program.platform.display.displays[1].screen.frame.x += 100;
        });
        QTest::newRow("no display is connected") << Act([](Program &program) {
            program.platform.display.displays.clear();
            program.platform.display.announceChange();
        });
        QTest::newRow("the program is ending")
            << Act([](Program &program) { program.controller->prepareToEnd(); });
        QTest::newRow("switched off")
            << Act([](Program &program) { program.prefs->setEnabled(false); });
        QTest::newRow("no permission")
            << Act([](Program &program) { program.desktop.trusted = false; });
        QTest::newRow("the desk was not restored") << Act([](Program &program) {
            program.prefs->setRestoreAutomatically(false);
            program.platform.display.announceChange();
        });
    }

    void nothingIsLearnedWhileItMayNotBeTheUsersDoing()
    {
        QFETCH(std::function<void(Program &)>, act);
        Program program;
        program.start();
        const QByteArray before = program.dir.read(layoutsFile);
        program.desktop.window(program.mail).frame = clampedPlace;
        act(program);
        program.scheduler.advance(90s);
        QCOMPARE(program.dir.read(layoutsFile), before);
    }

    void aSessionThatGoesOnAfterAllIsLearnedAgain()
    {
        Program program;
        program.start();
        program.controller->prepareToEnd();
        program.desktop.window(program.mail).frame = clampedPlace;
        program.scheduler.advance(10min - 1s);
        QVERIFY(program.layouts().at(0).windows.at(0).frame == rightPlace);
        program.scheduler.advance(90s);
        QVERIFY(program.layouts().at(0).windows.at(0).frame == clampedPlace);
    }

    void anUnreadChangeOfTheDisplaysStartsTheSettleDelay()
    {
        Program program;
        program.start();
        program.platform.display.unplug(QStringLiteral("Dock"));
        program.desktop.window(program.mail).frame = clampedPlace;
        program.controller->learn();
        QVERIFY(program.watcher->isSettling());
    }

    void aRestoreLeftToTheUserIsNotOverwrittenByLearning_data()
    {
        using Act = std::function<void(Program &)>;
        QTest::addColumn<Act>("act");
        QTest::addColumn<Rect>("learned");
        QTest::newRow("until Restore Now")
            << Act([](Program &program) { program.panel.onRestoreNow(); }) << rightPlace;
        QTest::newRow("until the layout is saved")
            << Act([](Program &program) { program.controller->saveLayoutNow(); }) << clampedPlace;
        QTest::newRow("until it settles and is restored") << Act([](Program &program) {
            program.prefs->setRestoreAutomatically(true);
            program.platform.display.announceChange();
            program.scheduler.advance(2s);
        }) << rightPlace;
    }

    void aRestoreLeftToTheUserIsNotOverwrittenByLearning()
    {
        QFETCH(std::function<void(Program &)>, act);
        QFETCH(Rect, learned);
        Program program;
        program.start();
        program.prefs->setRestoreAutomatically(false);
        program.undock();
        program.scheduler.advance(1min);
        program.dock();
        program.scheduler.advance(1h);
        QVERIFY(program.mailFrame() == clampedPlace);
        QVERIFY(program.layouts().at(0).windows.at(0).frame == rightPlace);
        QVERIFY(program.logged(QStringLiteral("learn: waiting, this desk was not restored")));
        act(program);
        program.scheduler.advance(1h);
        QVERIFY(program.layouts().at(0).windows.at(0).frame == learned);
        program.desktop.window(program.editor).frame.x += 7;
        program.scheduler.advance(90s); // learning goes on
        QVERIFY(program.layouts().at(0).windows.at(1).frame.x == leftPlace.x + 7);
    }

    void aUserActionDuringASettleMeansTheDeskThatIsThere()
    {
        Program program;
        program.start();
        program.undock();
        program.controller->saveLayoutNow();
        QCOMPARE(program.layouts().size(), 2u);
        QVERIFY(program.layouts().at(0).windows.at(0).frame == rightPlace);
        program.scheduler.advance(2s);
        program.dock();
        program.controller->restoreNow();
        QVERIFY(program.mailFrame() == rightPlace);
    }

    void automaticRestoreAsksPreferencesAndPermission_data()
    {
        using Act = std::function<void(Program &)>;
        QTest::addColumn<Act>("act");
        QTest::newRow("off") << Act([](Program &program) { program.prefs->setEnabled(false); });
        QTest::newRow("not automatically")
            << Act([](Program &program) { program.prefs->setRestoreAutomatically(false); });
        QTest::newRow("ending") << Act(
            [](Program &program) { program.controller->prepareToEnd(); });
    }

    void automaticRestoreAsksPreferencesAndPermission()
    {
        QFETCH(std::function<void(Program &)>, act);
        Program program;
        program.start();
        act(program);
        program.undock();
        program.scheduler.advance(2s);
        program.dock();
        program.scheduler.advance(2s);
        QVERIFY(program.mailFrame() == clampedPlace);
        program.controller->restoreNow(); // the user asked for it
        QVERIFY(program.mailFrame() == rightPlace);
    }

    void restoreNowTellsWhatItDid()
    {
        Program program;
        program.desktop.trusted = false;
        program.start();
        program.panel.onRestoreNow();
        QCOMPARE(program.panel.lastAction(), QStringLiteral("No layout saved yet"));
        QVERIFY(program.logged(QStringLiteral("panel: Restore Now clicked")));
        QCOMPARE(program.dir.logged().filter(QStringLiteral("accessibility: ")),
                 QStringList{QStringLiteral("accessibility: windows can't be read or moved")});
        program.panel.onGrantPermission();
        QCOMPARE(program.desktop.prompts, 1);

        program.desktop.trusted = true;
        program.controller->saveLayoutNow();
        QVERIFY(program.logged(QStringLiteral("hotkey: layout saved (2 windows)")));
        program.desktop.window(program.mail).refusesMoves = true;
        program.desktop.window(program.mail).frame = clampedPlace;
        program.panel.onRestoreNow();
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 1 of 2 windows"));
        QVERIFY(program.logged(
            QStringLiteral("restoreNow: restoring 2 windows (saved 2024-05-13T09:20:00Z)")));
    }

    void undoPutsTheWindowsBackWhereTheRestoreFoundThem()
    {
        Program program;
        program.start();
        program.controller->undoLastRestore();
        QCOMPARE(program.panel.lastAction(), QString());
        program.desktop.window(program.mail).frame = clampedPlace;
        program.controller->restoreNow();
        program.controller->undoLastRestore();
        QVERIFY(program.mailFrame() == clampedPlace);
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Undid restore: 2 windows"));
        QCOMPARE(UsageStore(program.dir.log, program.dir.clock).data().restores, 1);
    }

    void thePanelShowsTheDesk()
    {
        Program program;
        program.start();
        LayoutStore(program.dir.log, program.dir.clock)
            .renameDesk(program.watcher->configID(), QStringLiteral("Office"));
        program.end();
        program.start();
        QCOMPARE(program.panel.deskName(), QStringLiteral("Office"));
        QCOMPARE(program.panel.displayNames(), QStringLiteral("Built-in + Dock"));
        QVERIFY(program.panel.hasPermission());
        program.undock();
        program.scheduler.advance(2s);
        QCOMPARE(program.panel.deskName(), QStringLiteral("Desk setup"));
        QCOMPARE(program.panel.windowCount(), 0);
    }

    void theSettleDelayComesFromThePreferences_data()
    {
        QTest::addColumn<double>("stored");
        QTest::addColumn<double>("used");
        QTest::newRow("a choice") << 3.0 << 3.0;
        QTest::newRow("none at all") << 0.0 << 0.0;
        QTest::newRow("the longest") << 60.0 << 60.0;
        QTest::newRow("too long") << 60.1 << 1.5;
        QTest::newRow("negative") << -1.0 << 1.5;
        QTest::newRow("not a number") << qQNaN() << 1.5;
    }

    void theSettleDelayComesFromThePreferences()
    {
        QFETCH(double, stored);
        QFETCH(double, used);
        Program program;
        program.platform.defaults.setNumber(QStringLiteral("displaySettleSeconds"), stored);
        program.start();
        QCOMPARE(program.watcher->settleSeconds(), used);
    }

    void theGlobalKeysDoWhatThePanelDoes()
    {
        const HotKeyCombo undoKey{32, HotKeyCombo::control};
        Program program;
        program.start();
        program.prefs->setUndoHotKey(undoKey);
        program.controller->reloadHotKeys();
        QCOMPARE(program.platform.keys.registered.size(), 3u);
        program.desktop.window(program.mail).frame = clampedPlace;
        program.platform.keys.press(*program.prefs->restoreHotKey());
        QVERIFY(program.mailFrame() == rightPlace);
        program.platform.keys.press(undoKey);
        QVERIFY(program.mailFrame() == clampedPlace);
        program.platform.keys.press(*program.prefs->saveLayoutHotKey());
        QVERIFY(program.logged(QStringLiteral("hotkey: layout saved (2 windows)")));

        program.prefs->setUndoHotKey({});
        program.platform.keys.refused = {*program.prefs->restoreHotKey()};
        program.controller->reloadHotKeys();
        QCOMPARE(program.platform.keys.registered.size(), 1u);
        QVERIFY(program.logged(
            QStringLiteral("hotkey: Shift+Super+R is taken, \"Restore now\" has no key")));
        program.controller.reset();
        QVERIFY(program.platform.keys.registered.empty());
    }

    void nothingReachesAControllerThatIsGone()
    {
        Program program;
        program.start();
        program.undock();
        program.controller.reset();
        program.scheduler.advance(1h);
        QVERIFY(!program.panel.onRestoreNow);
        QCOMPARE(program.layouts().size(), 1u);
    }
};

QTEST_GUILESS_MAIN(AppControllerTests)
#include "AppControllerTests.moc"
