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
    void aDeskIsKnownAgainHoweverItIsPluggedIn();
    void theGlobalKeysActOverAnotherProgram();
    void theStashKeyPutsTheDeskAwayAndBringsItBack();
    void aNewUserIsWelcomedWhileTheDeskIsLearned();
    void theServersEndIsSaidOnceAndLosesNothing();
    void withoutADisplayItSaysSo();
};

void ProgramTest::aDeskIsKnownAgainHoweverItIsPluggedIn()
{
    /// Outputs with the serial numbers of their displays, from left to right.
    using Displays = std::vector<std::pair<int, int>>;
    const Displays pair{{0, 11}, {1, 12}};
    const struct {
        const char *name;
        Displays learned;
        Displays between;
        Displays again;
    } rows[] = {
        {"the lid closed and opened", pair, {{1, 12}}, pair},
        {"another connector", pair, {{0, 11}}, {{0, 11}, {5, 12}}},
        {"exchanged connectors", pair, {{0, 11}}, {{1, 11}, {0, 12}}},
        {"exchanged places", pair, {{0, 11}}, {{1, 12}, {0, 11}}},
        {"twins exchanged", {{0, 11}, {1, 11}}, {{0, 11}}, {{1, 11}, {0, 11}}},
    };
    constexpr Rect homes[] = {{100, 100, 500, 400}, {3100, 500, 600, 450}, {2380, 160, 700, 460}};
    DesktopSession desk;
    TestProgram::setSettleSeconds(0.3);
    desk.open(ClientKind::Plain, "left", homes[0]);
    const TestClient &right = desk.open(ClientKind::Qt, "right", homes[1]);
    desk.open(ClientKind::GtkDecorated, "right.tar", homes[2]);
    const auto connect = [&](const Displays &displays) {
        std::vector<Plugged> outputs;
        for (const auto &[output, serial] : displays) {
            desk.server.setEdid(output, QStringLiteral("Display"), serial);
            outputs.push_back({output, int(1920 * outputs.size())});
        }
        desk.server.plug(outputs);
    };
    for (const auto &row : rows) {
        connect(row.learned);
        auto home = std::begin(homes);
        for (const TestClient &client : desk.clients)
            desk.moveAndWait(client, *home++);
        const QStringList before = desk.frames();
        TestProgram program;
        program.awaitLogged(1, "learned layout: 3 windows");
        connect(row.between);
        program.awaitLogged(1, "display settled: 1 displays");
        require([&] { return desk.probe.frame(right.window())->x < 1920; }, "a push aside");
        desk.frames(); // at rest
        const qsizetype logged = program.logSize();
        connect(row.again);
        QVERIFY2(program.awaitRestore(logged, 2).contains("3/3 restored, 0 failed"), row.name);
        QVERIFY2(desk.frames() == before, row.name);
        program.endCleanly(SIGTERM);
        QVERIFY(!program.layouts().isEmpty());
    }
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
