#include "Panorel/InMemoryProgram.h"

#include <QRegularExpression>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString layoutsFile = QStringLiteral("layouts.json");

constexpr HotKeyCombo sceneKey{18, HotKeyCombo::control | HotKeyCombo::option};

/// The program with the scene "Scene 1" of how it stands, its windows moved away since.
struct ProgramWithScene : Program {
    ProgramWithScene()
    {
        panel.onSaveScene();
        desktop.window(editor).frame = {5, 5, 300, 200};
        desktop.window(mail).frame = clampedPlace;
    }
    bool isInPlace()
    {
        return desktop.window(editor).frame == leftPlace && mailFrame() == rightPlace;
    }
    SceneRecord scene() { return SceneStore(dir.log, dir.clock).allScenes().at(0); }
    /// As another program or an earlier run left it on disk.
    void startWith(const std::function<void(SceneRecord &)> &change)
    {
        SceneStore store(dir.log, dir.clock);
        SceneRecord changed = store.allScenes().at(0);
        change(changed);
        store.update(changed);
        start();
    }
};

} // namespace

class AppControllerTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDeskComesBackAfterUndockingAndDocking()
    {
        Program program;
        program.undock();
        program.scheduler.advance(10min); // learns the laptop on its own
        QCOMPARE(program.layouts().size(), 2u);
        program.dock();
        program.scheduler.advance(1499ms);
        QVERIFY(program.mailFrame() == clampedPlace);
        program.scheduler.advance(1ms);
        QVERIFY(program.mailFrame() == rightPlace);
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 2 windows"));
        QCOMPARE(program.panel.displayNames(), QStringLiteral("Built-in + Dock"));
        QVERIFY(program.logged("restore report: 2/2 restored, 0 failed, 0 skipped, 0.00s"));
        QCOMPARE(program.usage().windowsPutBack, 2);
    }

    void learningWritesOnlyWhatHasChanged()
    {
        Program program;
        const QByteArray first = program.dir.read(layoutsFile);
        program.scheduler.advance(90s);
        QCOMPARE(program.dir.read(layoutsFile), first);
        program.desktop.window(program.mail).frame = {1500, 10, 500, 400};
        program.scheduler.advance(90s);
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
        const std::pair<void (*)(Program & program), Rect> endings[] = {
            {[](Program &program) { program.panel.onRestoreNow(); }, rightPlace},
            {[](Program &program) { program.controller->saveLayoutNow(); }, clampedPlace},
            {[](Program &program) {
                 program.prefs->setRestoreAutomatically(true);
                 program.platform.display.announceChange();
                 program.scheduler.advance(2s);
             },
             rightPlace}};
        for (const auto &[act, learned] : endings) {
            Program program;
            program.prefs->setRestoreAutomatically(false);
            program.undock();
            program.scheduler.advance(1min);
            program.dock();
            program.scheduler.advance(1h);
            QCOMPARE(program.mailFrame(), clampedPlace);
            QCOMPARE(program.learnedMailFrame(), rightPlace);
            act(program);
            program.desktop.window(program.editor).frame.x += 7;
            program.scheduler.advance(1h); // learning goes on
            QCOMPARE(program.learnedMailFrame(), learned);
            QCOMPARE(program.layouts().at(0).windows.at(1).frame.x, leftPlace.x + 7);
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
        QVERIFY(program.logged("accessibility: windows can't be read or moved"));
        program.panel.onGrantPermission();
        QCOMPARE(program.desktop.prompts, 1);

        program.desktop.trusted = true;
        program.controller->saveLayoutNow();
        program.desktop.window(program.mail).refusesMoves = true;
        program.desktop.window(program.mail).frame = clampedPlace;
        program.panel.onRestoreNow();
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 1 of 2 windows"));
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

    void theCurrentWindowsBecomeASceneThatCanBeApplied()
    {
        ProgramWithScene program;
        program.panel.onStash();
        program.panel.onStash();
        program.panel.onApplyScene(program.panel.scenes().at(0).id);
        program.scheduler.advance(1s); // what the user asks for wins over the stash's return
        QVERIFY(program.isInPlace());
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Applied Scene 1: 2 windows"));
        QVERIFY(program.panel.canUndo());
        QCOMPARE(program.usage().sceneSwitches, 1);
        program.desktop.quit(program.editorPID);
        program.desktop.quit(program.mailPID);
        program.panel.onSaveScene();
        QCOMPARE(program.panel.scenes().at(1).name, QStringLiteral("Scene 2"));
        QVERIFY(program.panel.scenes().at(1).layout.windows.empty()); // a scene as any other
    }

    void thePreferenceCanOnlySwitchHidingOn()
    {
        for (const auto &[preference, own] :
             {std::pair(false, false), {true, false}, {false, true}}) {
            ProgramWithScene program;
            const ProcessIdentifier chat =
                program.desktop.launch(QStringLiteral("chat"), QStringLiteral("Chat"));
            program.startWith([own = own](SceneRecord &scene) { scene.hidesOtherApps = own; });
            program.prefs->setHideOthersOnSwitch(preference);
            program.panel.onApplyScene(program.scene().id);
            QStringList expected;
            if (preference || own)
                expected << QStringLiteral("hide %1").arg(chat);
            QCOMPARE(program.desktop.journal.filter(QRegularExpression(QStringLiteral("^hide"))),
                     expected);
            QCOMPARE(program.scene().hidesOtherApps, own);
        }
    }

    void aSceneHasItsOwnKeyAsLongAsItExists()
    {
        ProgramWithScene program;
        const auto before = program.platform.keys.registered.size();
        program.startWith([](SceneRecord &scene) { scene.hotKey = sceneKey; });
        program.undock(); // keys are global: the scene of another desk, too
        program.scheduler.advance(2s);
        program.desktop.window(program.editor).frame.x = 5;
        program.platform.keys.press(sceneKey);
        QVERIFY(program.isInPlace());

        const QUuid id = program.scene().id;
        SceneStore(program.dir.log, program.dir.clock).remove(id);
        program.start();
        QCOMPARE(program.platform.keys.registered.size(), before);
        program.controller->applyScene(id); // as a trigger that still points at it
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Applied Scene 1: 2 windows"));
    }

    void triggersOfAnEarlierRunApplyTheirScene()
    {
        for (const QByteArray kind : {R"({"time":{"hour":9,"minute":25,"weekdays":[]}})",
                                      R"({"calendarVideo":{"leadMinutes":5}})"}) {
            ProgramWithScene program;
            program.dir.write(QStringLiteral("triggers.json"),
                              R"([{"id":"11111111-1111-1111-1111-111111111111","sceneID":")"
                                  + program.scene().id.toByteArray(QUuid::WithoutBraces).toUpper()
                                  + R"(","kind":)" + kind + R"(,"enabled":true}])");
            program.start();
            CalendarEvent meeting;
            meeting.identifier = meeting.title = QStringLiteral("Weekly");
            meeting.notes = QStringLiteral("Join at https://meet.google.com/abc-defg-hij");
            meeting.start = program.dir.clock.now() + 10min;
            program.platform.events.all = {meeting};
            program.scheduler.advance(5min - 1s);
            QVERIFY2(!program.isInPlace(), kind);
            program.scheduler.advance(1s);
            QVERIFY2(program.isInPlace(), kind);
        }
    }

    void aStashedDeskIsNotLearnedAndComesBack()
    {
        Program program;
        const QByteArray learned = program.dir.read(layoutsFile);
        program.platform.keys.press(program.prefs->stashHotKey().value());
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Desk stashed"));
        QVERIFY(program.desktop.onScreenWindows()->empty());
        const ProcessIdentifier chat =
            program.desktop.launch(QStringLiteral("chat"), QStringLiteral("Chat"));
        program.desktop.open(chat, QStringLiteral("Hello"), leftPlace);
        program.scheduler.advance(5min);
        QCOMPARE(program.dir.read(layoutsFile), learned);

        program.panel.onStash();
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Desk brought back"));
        program.desktop.window(program.mail).frame = clampedPlace;
        program.controller->learn();
        QCOMPARE(program.dir.read(layoutsFile), learned);
        program.scheduler.advance(400ms);
        QVERIFY(program.mailFrame() == rightPlace);
        program.scheduler.advance(90s);
        QCOMPARE(program.layouts().at(0).windows.size(), 3u);
    }

    void anApplicationThatWasClosedForDaysOpensInItsPlace()
    {
        for (const bool isWanted : {true, false}) {
            Program program;
            program.desktop.quit(program.mailPID);
            program.scheduler.advance(48h);
            QCOMPARE(program.layouts().at(0).windows.size(), 1u);
            program.start();
            program.prefs->setPlaceNewApps(isWanted);
            const ProcessIdentifier again =
                program.desktop.launch(QStringLiteral("mail"), QStringLiteral("Mail"));
            program.mail = program.desktop.open(again, QStringLiteral("Inbox"), clampedPlace);
            program.scheduler.advance(1s);
            QVERIFY(program.mailFrame() == (isWanted ? rightPlace : clampedPlace));
        }
    }
};

QTEST_GUILESS_MAIN(AppControllerTests)
#include "AppControllerTests.moc"
