#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <QSettings>
#include <QTest>

#include <csignal>

using namespace Panorel;
using namespace Panorel::Desktop;

/// The program as the user starts it.
class ProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReplugPutsEveryWindowBack();
    void theGlobalKeysActOverAnotherProgram();
    void theStashKeyPutsTheDeskAwayAndBringsItBack();
    void aNewUserIsWelcomedWhileTheDeskIsLearned();
    void theServersEndIsSaidOnceAndLosesNothing();
    void withoutADisplayItSaysSo();
};

void ProgramTest::aReplugPutsEveryWindowBack()
{
    DesktopSession desk;
    desk.server.setEdid(0, QStringLiteral("Left"), 11);
    desk.server.setEdid(1, QStringLiteral("Right"), 12);
    desk.open(ClientKind::Plain, "left", {100, 100, 500, 400});
    const TestClient &right = desk.open(ClientKind::Qt, "right", {3100, 500, 600, 450});
    desk.open(ClientKind::Increments, "terminal", {2000, 80, 640, 420});
    const QStringList before = desk.frames();
    const std::vector<xcb_window_t> order = desk.probe.stacking();
    const auto focus = desk.probe.activeWindow();

    TestProgram program;
    program.awaitLogged(1, "learned layout: 3 windows");
    for (int round = 1; round <= 2; ++round) {
        desk.server.plug({{.output = 0}});
        program.awaitLogged(round, "display settled: 1 displays");
        require([&] { return desk.probe.frame(right.window())->x < 1920; }, "a push aside");
        desk.frames(); // at rest
        desk.server.plug(sideBySide());
        program.awaitLogged(round, "restore report: 3/3 restored, 0 failed");
        QCOMPARE(desk.frames(), before);
        QCOMPARE(desk.probe.stacking(), order);
        QCOMPARE(desk.probe.activeWindow(), focus);
    }
    program.endCleanly(SIGTERM);
    QVERIFY(!program.layouts().isEmpty());
}

void ProgramTest::theGlobalKeysActOverAnotherProgram()
{
    const Rect learned{200, 200, 500, 400};
    const Rect elsewhere{700, 500, 450, 350};
    DesktopSession desk;
    TestKeyboard keyboard;
    const TestClient &client = desk.open(ClientKind::Plain, "notes", learned);
    const HotKeyCombo undoKey{6, HotKeyCombo::control | HotKeyCombo::option};
    QSettings(TestServer::settings(), QSettings::IniFormat)
        .setValue(QStringLiteral("undoHotKey"), PanorelJSON::encoder().encode(undoKey));

    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    desk.moveAndWait(client, elsewhere);
    const auto focus = desk.probe.activeWindow();
    QCOMPARE(focus, std::optional(client.window()));
    const quint32 commandShift = HotKeyCombo::command | HotKeyCombo::shift;
    program.pressUntilLogged(keyboard, {15, commandShift}, "Restore Now clicked");
    require([&] { return desk.isAt(client, learned); }, "a restored window");
    keyboard.press(undoKey);
    require([&] { return desk.isAt(client, elsewhere); }, "an undone restore");
    keyboard.press(HotKeyCombo{1, commandShift});
    program.awaitLogged(1, "hotkey: layout saved (1 windows)");
    QCOMPARE(desk.probe.activeWindow(), focus);
    program.endCleanly(SIGINT);
}

void ProgramTest::theStashKeyPutsTheDeskAwayAndBringsItBack()
{
    const HotKeyCombo stashKey{1, HotKeyCombo::option | HotKeyCombo::shift};
    DesktopSession desk(QStringLiteral("xfwm4"));
    TestKeyboard keyboard;
    desk.open(ClientKind::GtkDecorated, "gtk.tar", {700, 400, 700, 500});
    const TestClient &focused = desk.open(ClientKind::Plain, "notes", {160, 160, 500, 400});
    desk.open(ClientKind::Qt, "qt", {2100, 200, 600, 450});
    desk.activateAndWait(focused);
    TestProgram program;
    program.awaitLogged(1, "learned layout: 3 windows");
    const QStringList frames = desk.frames();
    const auto order = desk.probe.stacking();
    program.pressUntilLogged(keyboard, stashKey, "stash: hid ");
    for (const TestClient &client : desk.clients)
        require([&] { return desk.isMinimised(client); }, "a stashed window");
    keyboard.press(stashKey);
    program.awaitLogged(1, "restore report: 3/3 restored, 0 failed");
    QTRY_COMPARE(desk.probe.activeWindow(), std::optional(focused.window()));
    QCOMPARE(desk.frames(), frames);
    QTRY_COMPARE(desk.probe.stacking(), order);
}

void ProgramTest::aNewUserIsWelcomedWhileTheDeskIsLearned()
{
    DesktopSession desk;
    const DesktopProbe &probe = desk.probe;
    TestKeyboard keyboard;
    desk.open(ClientKind::Plain, "notes", {200, 200, 500, 400});
    QVERIFY(QFile::remove(TestServer::settings()));
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows"); // its own window is none of them
    const auto welcome = [&] { return probe.find(QStringLiteral("Welcome to Panorel")); };
    require([&] { return welcome() && probe.activeWindow() == welcome(); }, "the welcome window");
    // Return, space, Enter: one key thrice within a millisecond would count as held.
    for (const xcb_keycode_t key : {36, 65, 104})
        keyboard.press(key);
    require([&] { return !welcome(); }, "the end of the welcome");
    QVERIFY(readFile(TestServer::settings()).contains("hasOnboarded=true\n"));
    program.endCleanly(SIGTERM);
}

void ProgramTest::theServersEndIsSaidOnceAndLosesNothing()
{
    DesktopSession desk;
    desk.open(ClientKind::Plain, "window", {200, 200, 500, 400});
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    const QStringList files{QStringLiteral("app.log"), QStringLiteral("layouts.json"),
                            QStringLiteral("placements.json"), QStringLiteral("usage.json")};
    require([&] { return program.files() == files; }, "the last file of the first learning");
    const QJsonObject layouts = program.layouts();
    desk.server.kill();
    program.failsWithOneLine();
    QVERIFY(!layouts.isEmpty());
    QVERIFY(program.layouts() == layouts);
    QCOMPARE(program.files(), files); // nothing half-written is left behind
}

void ProgramTest::withoutADisplayItSaysSo()
{
    qunsetenv("DISPLAY");
    TestProgram program;
    const QByteArray errors = program.failsWithOneLine();
    QVERIFY(errors.contains("DISPLAY") || errors.contains("X"));
}

QTEST_GUILESS_MAIN(ProgramTest)
#include "ProgramTest.moc"
