#include "Panorel/InMemoryProgram.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString layoutsFile = QStringLiteral("layouts.json");

} // namespace

class AppControllerTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDeskComesBackAfterUndockingAndDocking()
    {
        Program program;
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
        QVERIFY(program.logged("restore report: 2/2 restored, 0 failed, 0 skipped, 0.00s"));
        const UsageData usage = program.usage();
        QCOMPARE(usage.restores, 1);
        QCOMPARE(usage.windowsPutBack, 2);
        QCOMPARE(usage.deskIDs.size(), 2u);
    }

    void learningWritesOnlyWhatHasChanged()
    {
        Program program;
        QVERIFY(program.logged("learned layout: 2 windows for Desk setup [Default]"));
        const QByteArray first = program.dir.read(layoutsFile);
        program.scheduler.advance(90s);
        QCOMPARE(program.dir.read(layoutsFile), first);
        program.desktop.window(program.mail).frame = {1500, 10, 500, 400};
        program.scheduler.advance(89s);
        QCOMPARE(program.dir.read(layoutsFile), first);
        program.scheduler.advance(1s);
        const QByteArray second = program.dir.read(layoutsFile);
        QVERIFY(second != first);

        program.desktop.close(program.editor); // an empty desk is never learned
        program.desktop.close(program.mail);
        program.scheduler.advance(90s);
        program.controller->saveLayoutNow();
        QCOMPARE(program.dir.read(layoutsFile), second);
    }

    void nothingIsLearnedWhileItMayNotBeTheUsersDoing()
    {
        const struct {
            const char *name;
            bool settles;
            void (*act)(Program &program);
        } cases[] = {
            // Off and on again, as monitors sleep.
            {"displays settle", true,
             [](Program &program) { program.platform.display.announceChange(); }},
            {"the change's event is still unread", true,
             [](Program &program) { program.platform.display.unplug(QStringLiteral("Dock")); }},
            {"a display has moved, its event unread", true,
             [](Program &program) { program.platform.display.displays[1].screen.frame.x += 100; }},
            {"no display is connected", false,
             [](Program &program) {
                 program.watcher->setSettleSeconds(1);
                 program.platform.display.displays.clear();
                 program.platform.display.announceChange();
             }},
            {"ending", false, [](Program &program) { program.controller->prepareToEnd(); }},
            {"switched off", false, [](Program &program) { program.prefs->setEnabled(false); }},
            {"no permission", false, [](Program &program) { program.desktop.trusted = false; }}};
        for (const auto &[name, settles, act] : cases) {
            Program program;
            program.watcher->setSettleSeconds(120);
            const QByteArray before = program.dir.read(layoutsFile);
            program.desktop.window(program.mail).frame = clampedPlace;
            act(program);
            program.scheduler.advance(90s);
            QVERIFY2(program.dir.read(layoutsFile) == before, name);
            QVERIFY2(program.watcher->isSettling() == settles, name);
        }
    }

    void aSessionThatGoesOnAfterAllIsLearnedAgain()
    {
        Program program;
        program.controller->prepareToEnd();
        program.desktop.window(program.mail).frame = clampedPlace;
        program.scheduler.advance(10min - 1s);
        QVERIFY(program.learnedMailFrame() == rightPlace);
        program.scheduler.advance(90s);
        QVERIFY(program.learnedMailFrame() == clampedPlace);
    }

    void aRestoreLeftToTheUserIsNotOverwrittenByLearning()
    {
        const struct {
            const char *name;
            void (*act)(Program &program);
            Rect learned;
        } cases[] = {{"until Restore Now", [](Program &program) { program.panel.onRestoreNow(); },
                      rightPlace},
                     {"until the layout is saved",
                      [](Program &program) { program.controller->saveLayoutNow(); }, clampedPlace},
                     {"until it settles and is restored",
                      [](Program &program) {
                          program.prefs->setRestoreAutomatically(true);
                          program.platform.display.announceChange();
                          program.scheduler.advance(2s);
                      },
                      rightPlace}};
        for (const auto &[name, act, learned] : cases) {
            Program program;
            program.prefs->setRestoreAutomatically(false);
            program.undock();
            program.scheduler.advance(1min);
            program.dock();
            program.scheduler.advance(1h);
            QVERIFY(program.mailFrame() == clampedPlace);
            QVERIFY(program.learnedMailFrame() == rightPlace);
            QVERIFY(program.logged("learn: waiting, this desk was not restored"));
            act(program);
            program.scheduler.advance(1h);
            QVERIFY2(program.learnedMailFrame() == learned, name);
            program.desktop.window(program.editor).frame.x += 7;
            program.scheduler.advance(90s); // learning goes on
            QVERIFY2(program.layouts().at(0).windows.at(1).frame.x == leftPlace.x + 7, name);
        }
    }

    void aUserActionDuringASettleMeansTheDeskThatIsThere()
    {
        Program program;
        program.undock();
        program.controller->saveLayoutNow();
        QCOMPARE(program.layouts().size(), 2u);
        QVERIFY(program.learnedMailFrame() == rightPlace);
        program.scheduler.advance(2s);
        program.dock();
        program.controller->restoreNow();
        QVERIFY(program.mailFrame() == rightPlace);
    }

    void whenOffOrEndingOnlyTheUserRestores()
    {
        for (const bool isEnding : {false, true}) {
            Program program;
            isEnding ? program.controller->prepareToEnd() : program.prefs->setEnabled(false);
            program.undock();
            program.scheduler.advance(2s);
            program.dock();
            program.scheduler.advance(2s);
            QVERIFY(program.mailFrame() == clampedPlace);
            program.controller->restoreNow();
            QVERIFY(program.mailFrame() == rightPlace);
        }
    }

    void restoreNowTellsWhatItDid()
    {
        Program program(false);
        program.panel.onRestoreNow();
        QCOMPARE(program.panel.lastAction(), QStringLiteral("No layout saved yet"));
        QVERIFY(program.logged("panel: Restore Now clicked"));
        QCOMPARE(program.dir.logged().filter(QStringLiteral("accessibility: ")),
                 QStringList{QStringLiteral("accessibility: windows can't be read or moved")});
        program.panel.onGrantPermission();
        QCOMPARE(program.desktop.prompts, 1);

        program.desktop.trusted = true;
        program.controller->saveLayoutNow();
        QVERIFY(program.logged("hotkey: layout saved (2 windows)"));
        program.desktop.window(program.mail).refusesMoves = true;
        program.desktop.window(program.mail).frame = clampedPlace;
        program.panel.onRestoreNow();
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 1 of 2 windows"));
        QVERIFY(program.logged("restoreNow: restoring 2 windows (saved 2024-05-13T09:20:00Z)"));
    }

    void undoPutsTheWindowsBackWhereTheRestoreFoundThem()
    {
        Program program;
        program.controller->undoLastRestore();
        QCOMPARE(program.panel.lastAction(), QString());
        program.desktop.window(program.mail).frame = clampedPlace;
        program.controller->restoreNow();
        program.controller->undoLastRestore();
        QVERIFY(program.mailFrame() == clampedPlace);
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Undid restore: 2 windows"));
        QCOMPARE(program.usage().restores, 1);
    }

    void thePanelShowsTheDesk()
    {
        Program program;
        LayoutStore(program.dir.log, program.dir.clock)
            .renameDesk(program.watcher->configID(), QStringLiteral("Office"));
        program.start();
        QCOMPARE(program.panel.deskName(), QStringLiteral("Office"));
        QCOMPARE(program.panel.displayNames(), QStringLiteral("Built-in + Dock"));
        QVERIFY(program.panel.hasPermission());
        program.undock();
        program.scheduler.advance(2s);
        QCOMPARE(program.panel.deskName(), QStringLiteral("Desk setup"));
        QCOMPARE(program.panel.windowCount(), 0);
    }

    void theSettleDelayComesFromThePreferences()
    {
        const std::pair<double, double> storedAndUsed[] = {{0, 0},      {3, 3},    {60, 60},
                                                           {60.1, 1.5}, {-1, 1.5}, {qQNaN(), 1.5}};
        for (const auto &[stored, used] : storedAndUsed) {
            Program program;
            program.platform.defaults.setNumber(QStringLiteral("displaySettleSeconds"), stored);
            program.start();
            QCOMPARE(program.watcher->settleSeconds(), used);
        }
    }

    void aKeyThatIsTakenOrClearedIsGivenUp()
    {
        Program program;
        program.prefs->setUndoHotKey(HotKeyCombo{32, HotKeyCombo::control});
        program.controller->reloadHotKeys();
        QCOMPARE(program.platform.keys.registered.size(), 4u);
        program.prefs->setUndoHotKey({});
        program.platform.keys.refused = {*program.prefs->restoreHotKey()};
        program.controller->reloadHotKeys();
        QCOMPARE(program.platform.keys.registered.size(), 2u);
        QVERIFY(program.logged("hotkey: Shift+Super+R is taken, \"Restore now\" has no key"));
    }

    void nothingReachesAControllerThatIsGone()
    {
        Program program;
        program.undock();
        program.controller.reset();
        program.scheduler.advance(1h);
        QVERIFY(!program.panel.onRestoreNow);
        QVERIFY(program.platform.keys.registered.empty());
        QCOMPARE(program.layouts().size(), 1u);
    }
};

QTEST_GUILESS_MAIN(AppControllerTests)
#include "AppControllerTests.moc"
