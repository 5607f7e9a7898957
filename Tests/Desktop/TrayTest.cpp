#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestKeyboard.h"

#include <QFile>
#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr xcb_keycode_t escapeKey = 9;
constexpr xcb_keycode_t returnKey = 36;
constexpr Rect learnedPlace{200, 200, 500, 400};

/// One bar along the bottom of the first display, with nothing but a tray.
const char xfcePanel[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=8;x=960;y=1064"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="30"/>
      <property name="output-name" type="string" value="monitor-0"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

/// A desktop with one window that the program has learned.
struct Desk : DesktopSession {
    Desk() : DesktopSession(QStringLiteral("openbox"), {Plugged{}}) {}

    TestClient &client = open(ClientKind::Plain, "notes", learnedPlace);
    ChildProcess program{QStringLiteral(PANOREL_PROGRAM)};
    std::unique_ptr<ChildProcess> tray;

    void startTray(const QString &name, const QStringList &arguments)
    {
        tray = std::make_unique<ChildProcess>(name, arguments);
        manager->giveBus(*tray);
        tray->silence();
        tray->start();
    }
    /// What has no icon yet does nothing when clicked, and two fast clicks count as one.
    void clickUntil(int x, int y, bool panelIsToShow)
    {
        for (int attempt = 0; attempt < 10 && panelShows() != panelIsToShow; ++attempt) {
            probe.click(x, y);
            waitUntil([&] { return panelShows() == panelIsToShow; }, 2'000);
        }
        QCOMPARE(panelShows(), panelIsToShow);
    }
    void startProgram()
    {
        program.start();
        const QString layouts = server.home.path(QStringLiteral("data/Panorel/layouts.json"));
        require([&] { return QFile::exists(layouts); }, "a learned desk");
    }
    bool panelShows() const { return probe.find(QStringLiteral("Panorel")).has_value(); }
    Rect panelFrame() const { return probe.restingFrame(*probe.find(QStringLiteral("Panorel"))); }
    bool clientHasFocus() const { return probe.activeWindow() == client.window(); }
};

} // namespace

class TrayTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anEmbeddedIconOpensAndClosesThePanel();
    void anAnnouncedIconOpensThePanelThoughTheTrayCameLater();
    void withoutATrayASecondStartOpensThePanel();
};

void TrayTest::anEmbeddedIconOpensAndClosesThePanel()
{
    Desk desk;
    desk.startTray(QStringLiteral("trayer"),
                   QStringLiteral("--edge top --align right --widthtype request --height 24 "
                                  "--SetPartialStrut true --expand false --margin 0")
                       .split(u' '));
    const auto trayFrame = [&] {
        const auto window = desk.probe.find(QStringLiteral("panel"));
        return window ? desk.probe.frame(*window).value_or(Rect()) : Rect();
    };
    require([&] { return trayFrame().height == 24; }, "the tray");
    desk.startProgram();
    require([&] { return trayFrame().width >= 20; }, "the icon");
    const int iconX = int(trayFrame().maxX()) - 10;
    desk.clickUntil(iconX, 12, true);
    const Rect panel = desk.panelFrame();
    QCOMPARE(panel.maxX(), 1920.0 - 8);
    QCOMPARE(panel.minY(), 24.0 + 6);
    QVERIFY(desk.clientHasFocus());
    desk.probe.click(300, 300); // another window
    desk.probe.sync();
    QVERIFY(desk.panelShows());
    desk.clickUntil(iconX, 12, false);
    desk.clickUntil(iconX, 12, true);
}

void TrayTest::anAnnouncedIconOpensThePanelThoughTheTrayCameLater()
{
    Desk desk;
    desk.manager->giveBus(desk.program);
    desk.startProgram();
    writeFile(desk.server.home.path(
                  QStringLiteral("config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml")),
              xfcePanel);
    desk.startTray(QStringLiteral("xfce4-panel"),
                   {QStringLiteral("--disable-wm-check"), QStringLiteral("--sm-client-disable")});

    const QString barTitle = QStringLiteral("xfce4-panel");
    require([&] { return desk.probe.find(barTitle).has_value(); }, "the bar");
    const Rect bar = desk.probe.restingFrame(*desk.probe.find(barTitle));
    const int iconY = int(bar.minY()) + 15;
    desk.clickUntil(16, iconY, true);
    const Rect panel = desk.panelFrame();
    QCOMPARE(panel.minX(), 8.0);
    QCOMPARE(panel.maxY(), bar.minY() - 8);
    QVERIFY(desk.clientHasFocus());
    desk.clickUntil(16, iconY, false);
}

void TrayTest::withoutATrayASecondStartOpensThePanel()
{
    Desk desk;
    TestKeyboard keyboard;
    desk.startProgram();
    desk.moveAndWait(desk.client, {700, 500, 600, 300});
    ChildProcess second(QStringLiteral(PANOREL_PROGRAM));
    second.start();
    QTRY_VERIFY(!second.running());
    QCOMPARE(second.process().exitCode(), 0);
    QTRY_VERIFY(desk.panelShows());
    QTRY_COMPARE(desk.probe.activeWindow(), desk.probe.find(QStringLiteral("Panorel")));
    QCOMPARE(desk.panelFrame().maxX(), 1920.0 - 8);
    QCOMPARE(desk.panelFrame().minY(), 8.0);

    keyboard.press(returnKey); // "Restore Now"
    QTRY_VERIFY(desk.isAt(desk.client, learnedPlace));
    keyboard.press(escapeKey);
    QTRY_VERIFY(!desk.panelShows());
    QTRY_VERIFY(desk.clientHasFocus());
}

QTEST_GUILESS_MAIN(TrayTest)
#include "TrayTest.moc"
