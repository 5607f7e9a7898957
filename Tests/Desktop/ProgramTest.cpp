#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <QTest>

#include <csignal>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr HotKeyCombo saveKey{1, HotKeyCombo::command | HotKeyCombo::shift};

/// One bar along the bottom of the first display, with nothing but a tray.
const char xfcePanel[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=8;x=960;y=1064"/>
      <property name="length" type="uint" value="100"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

} // namespace

/// The program as the user starts it.
class ProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSceneOpensWhatIsMissingAndHidesTheOthers();
    void theTrayIconOpensAndClosesThePanelThoughTheTrayCameLater();
    void theServersEndIsSaidOnceAndLosesNothing();
    void withoutADisplayItSaysSo();
};

void ProgramTest::aSceneOpensWhatIsMissingAndHidesTheOthers()
{
    const Rect readersPlace{2200, 150, 700, 500};
    const QString readersID = u"org.example.Reader"_qs;
    DesktopSession desk;
    TestKeyboard keyboard;
    desk.server.home.install(readersID, "Exec=" + TestClient::program(ClientKind::Qt).toUtf8()
                                            + " --title reader\nStartupWMClass=qt-client\n");
    const auto reader = [&] { return desk.probe.find(u"reader"_qs); };
    const TestClient &writer = desk.open(ClientKind::Plain, "writer", {100, 100, 600, 500});
    desk.open(ClientKind::Qt, "reader", readersPlace);
    TestProgram before;
    before.awaitLogged(1, "learned layout: 2 windows");
    before.endCleanly(SIGTERM); // it has written all its files
    const QByteArray layouts = before.read(u"layouts.json"_qs);
    SceneRecord scene;
    scene.id = QUuid::createUuid();
    scene.name = u"Reading"_qs;
    scene.opensMissingApps = scene.hidesOtherApps = true;
    scene.hotKey = HotKeyCombo{18, HotKeyCombo::control | HotKeyCombo::option};
    scene.layout = PanorelJSON::decoder().decode<LayoutFile>(layouts).layouts[0];
    scene.configID = scene.layout.configID;
    const SceneFile scenes{.lastAppliedByConfig = {}, .scenes = {scene}};

    desk.close(u"reader"_qs);
    desk.moveAndWait(writer, {900, 300, 400, 300});
    const TestClient &chat = desk.open(ClientKind::Plain, "chat", {300, 300, 400, 300}, u"Chat"_qs);
    TestProgram program({{u"layouts.json"_qs, layouts},
                         {u"placements.json"_qs, before.read(u"placements.json"_qs)},
                         {u"scenes.json"_qs, PanorelJSON::encoder().encode(scenes)}});
    program.pressUntilLogged(keyboard, *scene.hotKey, "scene applied: Reading, ");
    require([&] { return desk.isMinimised(chat); }, "a hidden application");
    const char placed[] = "launch placement: moved 1 windows for org.example.Reader";
    program.awaitLogged(1, placed);
    QCOMPARE(desk.probe.restingFrame(reader().value()), readersPlace);
    QCOMPARE(desk.probe.restingFrame(writer.window()), (Rect{100, 100, 600, 500}));
    QVERIFY(!desk.isMinimised(writer));

    // And whenever the user starts it himself.
    desk.probe.close(reader().value());
    require([&] { return !reader(); }, "the reader's end");
    program.pressUntilLogged(keyboard, saveKey, "hotkey: layout saved (1 windows)");
    run(u"gio"_qs, {u"launch"_qs, desk.server.home.application(readersID)});
    program.awaitLogged(2, placed);
    QCOMPARE(desk.probe.restingFrame(reader().value()), readersPlace);
    program.endCleanly(SIGINT);
    QVERIFY(reader()); // it does not end with the program
}

void ProgramTest::theTrayIconOpensAndClosesThePanelThoughTheTrayCameLater()
{
    DesktopSession desk(u"openbox"_qs, {Plugged{}});
    const SessionBus bus; // what it starts has the home of this desk
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    const TestClient &client = desk.open(ClientKind::Plain, "notes", {200, 200, 500, 400});
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    writeFile(desk.server.home.path(u"config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"_qs),
              xfcePanel);
    ChildProcess tray(u"xfce4-panel"_qs, {u"--disable-wm-check"_qs, u"--sm-client-disable"_qs});
    tray.silence();
    tray.start();
    const auto bar = [&] { return desk.probe.find(u"xfce4-panel"_qs); };
    require([&] { return bar().has_value(); }, "the bar");
    const Rect barFrame = desk.probe.restingFrame(*bar());

    const auto panel = [&] { return desk.probe.find(u"Panorel"_qs); };
    const auto clickUntil = [&](bool panelIsToShow) {
        // What has no icon yet does nothing when clicked, and two fast clicks count as one.
        const auto clicked = [&] {
            desk.probe.click(16, int(barFrame.minY()) + 15);
            return waitUntil([&] { return panel().has_value() == panelIsToShow; }, 2'000);
        };
        require(clicked, "a panel that shows or not");
    };
    clickUntil(true);
    const Rect frame = desk.probe.restingFrame(*panel());
    QCOMPARE(std::pair(frame.minX(), frame.maxY()), std::pair(8.0, barFrame.minY() - 8));
    QCOMPARE(desk.probe.activeWindow(), std::optional(client.window()));
    clickUntil(false);
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
