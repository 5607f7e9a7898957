#include "Desktop/Support/DesktopProbe.h"
#include "Desktop/Support/TestClient.h"
#include "Desktop/Support/TestKeyboard.h"
#include "Desktop/Support/TestProgram.h"
#include "Desktop/Support/TestServer.h"
#include "Desktop/Support/TestWindowManager.h"
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
    void aNewUserIsWelcomedWhileTheDeskIsLearned();
    void theServersEndIsSaidOnceAndLosesNothing();
    void withoutADisplayItSaysSo();
};

void ProgramTest::aReplugPutsEveryWindowBack()
{
    TestServer server;
    server.setEdid(0, QStringLiteral("Left"), 11);
    server.setEdid(1, QStringLiteral("Right"), 12);
    server.plug(sideBySide());
    const TestWindowManager manager(QStringLiteral("openbox"));
    DesktopProbe probe;
    const TestClient left(ClientKind::Plain, QStringLiteral("left"));
    const TestClient right(ClientKind::Qt, QStringLiteral("right"));
    const TestClient terminal(ClientKind::Increments, QStringLiteral("terminal"));
    probe.move(left.window(), {100, 100, 500, 400});
    probe.move(right.window(), {3100, 500, 600, 450});
    probe.move(terminal.window(), {2000, 80, 640, 420});
    const std::vector<xcb_window_t> windows{left.window(), right.window(), terminal.window()};
    require([&] { return probe.frame(right.window())->x == 3100; }, "placed windows");
    require([&] { return probe.frame(terminal.window())->x == 2000; }, "placed windows");
    const std::vector<Rect> before = probe.restingFrames(windows);
    const std::vector<xcb_window_t> order = probe.stacking();
    const auto focus = probe.activeWindow();

    TestProgram program;
    program.awaitLogged(1, "learned layout: 3 windows");
    for (int round = 1; round <= 2; ++round) {
        server.plug({{.output = 0}});
        program.awaitLogged(round, "display settled: 1 displays");
        require([&] { return probe.frame(right.window())->x < 1920; }, "a window pushed aside");
        probe.restingFrames(windows);
        server.plug(sideBySide());
        program.awaitLogged(round, "restore report: 3/3 restored, 0 failed");
        QVERIFY(probe.restingFrames(windows) == before);
        QCOMPARE(probe.stacking(), order);
        QCOMPARE(probe.activeWindow(), focus);
    }
    program.endCleanly(SIGTERM);
    QVERIFY(!program.layouts().isEmpty());
}

void ProgramTest::theGlobalKeysActOverAnotherProgram()
{
    const Rect learned{200, 200, 500, 400};
    const Rect elsewhere{700, 500, 450, 350};
    TestServer server;
    const TestWindowManager manager(QStringLiteral("openbox"));
    TestKeyboard keyboard;
    DesktopProbe probe;
    const TestClient client(ClientKind::Plain, QStringLiteral("notes"));
    const auto isAt = [&](const Rect &frame) { return probe.frame(client.window()) == frame; };
    probe.move(client.window(), learned);
    require([&] { return isAt(learned); }, "a placed window");
    const HotKeyCombo undoKey{6, HotKeyCombo::control | HotKeyCombo::option};
    QSettings(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Panorel/Panorel.ini"),
              QSettings::IniFormat)
        .setValue(QStringLiteral("undoHotKey"), PanorelJSON::encoder().encode(undoKey));

    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    probe.move(client.window(), elsewhere);
    require([&] { return isAt(elsewhere); }, "a moved window");
    const auto focus = probe.activeWindow();
    QCOMPARE(focus, std::optional(client.window()));
    const quint32 commandShift = HotKeyCombo::command | HotKeyCombo::shift;
    // What is pressed before the keys are grabbed goes to the window.
    require(
        [&] {
            keyboard.press(HotKeyCombo{15, commandShift});
            return waitUntil([&] { return program.logged("Restore Now clicked") > 0; }, 2'000);
        },
        "a grabbed key");
    require([&] { return isAt(learned); }, "a restored window");
    keyboard.press(undoKey);
    require([&] { return isAt(elsewhere); }, "an undone restore");
    keyboard.press(HotKeyCombo{1, commandShift});
    program.awaitLogged(1, "hotkey: layout saved (1 windows)");
    QCOMPARE(probe.activeWindow(), focus);
    program.endCleanly(SIGINT);
}

void ProgramTest::aNewUserIsWelcomedWhileTheDeskIsLearned()
{
    TestServer server;
    const TestWindowManager manager(QStringLiteral("openbox"));
    TestKeyboard keyboard;
    DesktopProbe probe;
    const TestClient client(ClientKind::Plain, QStringLiteral("notes"));
    const QString settings =
        qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Panorel/Panorel.ini");
    QVERIFY(QFile::remove(settings));
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows"); // its own window is none of them
    const auto welcome = [&] { return probe.find(QStringLiteral("Welcome to Panorel")); };
    require([&] { return welcome() && probe.activeWindow() == welcome(); }, "the welcome window");
    // Return, space, Enter: one key thrice within a millisecond would count as held.
    for (const xcb_keycode_t key : {36, 65, 104})
        keyboard.press(key);
    require([&] { return !welcome(); }, "the end of the welcome");
    QCOMPARE(QSettings(settings, QSettings::IniFormat).value(QStringLiteral("hasOnboarded")),
             QVariant(QStringLiteral("true")));
    program.endCleanly(SIGTERM);
}

void ProgramTest::theServersEndIsSaidOnceAndLosesNothing()
{
    TestServer server;
    const TestWindowManager manager(QStringLiteral("openbox"));
    const TestClient client(ClientKind::Plain, QStringLiteral("window"));
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    const QStringList files{QStringLiteral("app.log"), QStringLiteral("layouts.json"),
                            QStringLiteral("placements.json"), QStringLiteral("usage.json")};
    require([&] { return program.files() == files; }, "the last file of the first learning");
    const QJsonObject layouts = program.layouts();
    server.kill();
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
