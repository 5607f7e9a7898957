#include "Panorel/InMemoryProgram.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

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
    void startWithTriggers(const QByteArray &kind, const QByteArray &sceneID)
    {
        dir.write(QStringLiteral("triggers.json"),
                  R"([{"id":"11111111-1111-1111-1111-111111111111","sceneID":")" + sceneID
                      + R"(","kind":)" + kind + R"(,"enabled":true}])");
        start();
    }
    QByteArray sceneID() { return scene().id.toByteArray(QUuid::WithoutBraces).toUpper(); }
    bool isHidden(ProcessIdentifier pid)
    {
        return std::ranges::find(desktop.applications(), pid, &RunningApplication::pid)->isHidden;
    }
};

} // namespace

class SceneActionsTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theCurrentWindowsBecomeASceneThatCanBeApplied()
    {
        ProgramWithScene program;
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Scene saved"));
        QCOMPARE(program.panel.scenes().size(), 1u);
        const SceneRecord scene = program.scene();
        QCOMPARE(scene.name, QStringLiteral("Scene 1"));
        QCOMPARE(scene.layout.layoutName, scene.name);
        QVERIFY(!scene.opensMissingApps && !scene.hidesOtherApps && !scene.wallpaperPath);

        program.panel.onApplyScene(scene.id);
        QVERIFY(program.isInPlace());
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Applied Scene 1: 2 windows"));
        QVERIFY(program.panel.canUndo());
        QCOMPARE(program.usage().sceneSwitches, 1);
        program.panel.onSaveScene();
        QCOMPARE(program.panel.scenes().at(1).name, QStringLiteral("Scene 2"));
    }

    void anEmptyDeskIsASceneToo()
    {
        Program program;
        program.desktop.close(program.editor);
        program.desktop.close(program.mail);
        program.panel.onSaveScene();
        QVERIFY(program.panel.scenes().at(0).layout.windows.empty());
    }

    void thePreferenceCanOnlySwitchHidingOn()
    {
        for (const bool preference : {false, true}) {
            for (const bool own : {false, true}) {
                ProgramWithScene program;
                const ProcessIdentifier chat =
                    program.desktop.launch(QStringLiteral("chat"), QStringLiteral("Chat"));
                program.startWith([own](SceneRecord &scene) { scene.hidesOtherApps = own; });
                program.prefs->setHideOthersOnSwitch(preference);
                program.panel.onApplyScene(program.scene().id);
                QCOMPARE(program.isHidden(chat), preference || own);
                QVERIFY(!program.isHidden(program.editorPID));
                QCOMPARE(program.scene().hidesOtherApps, own);
            }
        }
    }

    void aSceneHasItsOwnKeyAsLongAsItExists()
    {
        ProgramWithScene program;
        const auto before = program.platform.keys.registered.size();
        program.startWith([](SceneRecord &scene) { scene.hotKey = sceneKey; });
        QCOMPARE(program.platform.keys.registered.size(), before + 1);
        program.undock(); // keys are global: the scene of another desk, too
        program.scheduler.advance(2s);
        program.desktop.window(program.editor).frame.x = 5;
        program.platform.keys.press(sceneKey);
        QVERIFY(program.isInPlace());
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Applied Scene 1: 2 windows"));

        const QUuid id = program.scene().id;
        SceneStore(program.dir.log, program.dir.clock).remove(id);
        program.start();
        QCOMPARE(program.platform.keys.registered.size(), before);
        program.controller->applyScene(id); // as a trigger that still points at it
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Applied Scene 1: 2 windows"));
    }

    void aTriggerOfAnEarlierRunAppliesItsScene()
    {
        ProgramWithScene program;
        program.startWithTriggers(R"({"time":{"hour":12,"minute":0,"weekdays":[]}})",
                                  program.sceneID());
        program.scheduler.advance(24h);
        QVERIFY(program.isInPlace());
    }

    void aMeetingAppliesItsScene()
    {
        ProgramWithScene program;
        program.startWithTriggers(R"({"calendarVideo":{"leadMinutes":5}})", program.sceneID());
        CalendarEvent meeting;
        meeting.identifier = meeting.title = QStringLiteral("Weekly");
        meeting.notes = QStringLiteral("Join at https://meet.google.com/abc-defg-hij");
        meeting.start = program.dir.clock.now() + 10min;
        program.platform.events.all = {meeting};
        program.scheduler.advance(4min);
        QVERIFY(!program.isInPlace());
        program.scheduler.advance(1min);
        QVERIFY(program.isInPlace());
        QVERIFY(program.logged("calendar trigger fired for “Weekly”"));
    }

    void aStashedDeskIsNotLearnedAndComesBack()
    {
        Program program;
        const QByteArray learned = program.dir.read(QStringLiteral("layouts.json"));
        const auto stashKey = program.prefs->stashHotKey().value();
        program.platform.keys.press(stashKey);
        QVERIFY(program.panel.isStashed());
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Desk stashed"));
        QVERIFY(program.desktop.onScreenWindows()->empty());
        const ProcessIdentifier chat =
            program.desktop.launch(QStringLiteral("chat"), QStringLiteral("Chat"));
        program.desktop.open(chat, QStringLiteral("Hello"), leftPlace);
        program.scheduler.advance(5min);
        QCOMPARE(program.dir.read(QStringLiteral("layouts.json")), learned);

        program.panel.onStash();
        QVERIFY(!program.panel.isStashed());
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Desk brought back"));
        program.desktop.window(program.mail).frame = clampedPlace;
        program.controller->learn();
        QCOMPARE(program.dir.read(QStringLiteral("layouts.json")), learned);
        program.scheduler.advance(400ms);
        QVERIFY(program.mailFrame() == rightPlace);
        program.scheduler.advance(90s);
        QCOMPARE(program.layouts().at(0).windows.size(), 3u);
    }

    void whatTheUserAsksForMeanwhileWinsOverTheStashsReturn()
    {
        ProgramWithScene program;
        program.panel.onStash();
        program.panel.onStash();
        program.panel.onApplyScene(program.scene().id);
        program.scheduler.advance(1s);
        QVERIFY(program.isInPlace());
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

QTEST_GUILESS_MAIN(SceneActionsTests)
#include "SceneActionsTests.moc"
