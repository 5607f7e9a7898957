#include "Desktop/Support/DesktopProbe.h"
#include "Desktop/Support/TestClient.h"
#include "Desktop/Support/TestPointer.h"
#include "Desktop/Support/TestServer.h"
#include "Desktop/Support/TestWindowManager.h"

#include <QDir>
#include <QTest>

#include <csignal>

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

/// The program itself, as its user starts it.
class Program {
public:
    explicit Program(const QString &busAddress = {}) : m_process(QStringLiteral(PANOREL_PROGRAM))
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (!busAddress.isEmpty())
            environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
        m_process.process().setProcessEnvironment(environment);
        m_process.process().setProcessChannelMode(QProcess::SeparateChannels);
    }
    void start() { m_process.start(); }
    /// Its exit status, once it has ended.
    int status()
    {
        if (m_process.running() && !m_process.process().waitForFinished(20'000))
            qFatal("the program does not end");
        return m_process.process().exitStatus() == QProcess::NormalExit
                   ? m_process.process().exitCode()
                   : -1;
    }
    QStringList complaints()
    {
        return QString::fromUtf8(m_process.process().readAllStandardError())
            .split(u'\n', Qt::SkipEmptyParts);
    }
    qint64 processID() const { return m_process.processID(); }

private:
    ChildProcess m_process;
};

/// A desktop with one window that the program has learned.
struct Desk {
    TestServer server;
    TestWindowManager manager{QStringLiteral("openbox")};
    DesktopProbe probe;
    TestPointer pointer;
    TestClient client{ClientKind::Plain, QStringLiteral("notes")};
    std::unique_ptr<ChildProcess> tray;

    Desk() { moveClient(learnedPlace); }

    void moveClient(const Rect &frame)
    {
        probe.move(client.window(), frame);
        require([&] { return probe.frame(client.window()) == frame; }, "a moved window");
    }
    void startTray(const QString &name, const QStringList &arguments)
    {
        tray = std::make_unique<ChildProcess>(name, arguments);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), manager.busAddress());
        tray->process().setProcessEnvironment(environment);
        tray->process().setStandardErrorFile(QProcess::nullDevice());
        tray->process().setProcessChannelMode(QProcess::SeparateChannels);
        tray->start();
    }
    /// What has no icon yet does nothing when clicked, and two fast clicks count as one.
    void clickUntil(int x, int y, bool panelIsToShow)
    {
        for (int attempt = 0; attempt < 10 && panelShows() != panelIsToShow; ++attempt) {
            pointer.click(x, y);
            waitUntil([&] { return panelShows() == panelIsToShow; }, 2'000);
        }
        QCOMPARE(panelShows(), panelIsToShow);
    }
    void waitUntilLearned() const
    {
        const QString layouts = server.home() + QStringLiteral("/data/Panorel/layouts.json");
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
    void theProgramEndsAsItIsAsked_data();
    void theProgramEndsAsItIsAsked();
    void aLostServerIsSaidOnce();
    void withoutAServerTheProgramSaysSo();
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
    Program program;
    program.start();
    require([&] { return trayFrame().width >= 20; }, "the icon");
    desk.waitUntilLearned();
    const int iconX = int(trayFrame().maxX()) - 10;
    desk.clickUntil(iconX, 12, true);
    const Rect panel = desk.panelFrame();
    QCOMPARE(panel.maxX(), 1920.0 - 8);
    QCOMPARE(panel.minY(), 24.0 + 6);
    QVERIFY(desk.clientHasFocus());
    desk.pointer.click(300, 300); // another window
    desk.probe.sync();
    QVERIFY(desk.panelShows());
    desk.clickUntil(iconX, 12, false);
    desk.clickUntil(iconX, 12, true);
}

void TrayTest::anAnnouncedIconOpensThePanelThoughTheTrayCameLater()
{
    Desk desk;
    Program program(desk.manager.busAddress());
    program.start();
    desk.waitUntilLearned();
    const QString folder =
        desk.server.home() + QStringLiteral("/config/xfce4/xfconf/xfce-perchannel-xml");
    QVERIFY(QDir().mkpath(folder));
    QFile settings(folder + QStringLiteral("/xfce4-panel.xml"));
    QVERIFY(settings.open(QIODevice::WriteOnly) && settings.write(xfcePanel) > 0);
    settings.close();
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
    Program program;
    program.start();
    desk.waitUntilLearned();
    desk.moveClient({700, 500, 600, 300});
    Program second;
    second.start();
    QCOMPARE(second.status(), 0);
    QTRY_VERIFY(desk.panelShows());
    QTRY_COMPARE(desk.probe.activeWindow(), desk.probe.find(QStringLiteral("Panorel")));
    QCOMPARE(desk.panelFrame().maxX(), 1920.0 - 8);
    QCOMPARE(desk.panelFrame().minY(), 8.0);

    keyboard.press(returnKey); // "Restore Now"
    QTRY_VERIFY(desk.probe.frame(desk.client.window()) == learnedPlace);
    keyboard.press(escapeKey);
    QTRY_VERIFY(!desk.panelShows());
    QTRY_VERIFY(desk.clientHasFocus());
}

void TrayTest::theProgramEndsAsItIsAsked_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("terminated") << SIGTERM;
    QTest::newRow("interrupted") << SIGINT;
    QTest::newRow("terminal closed") << SIGHUP;
}

void TrayTest::theProgramEndsAsItIsAsked()
{
    QFETCH(int, signal);
    Desk desk;
    Program program;
    program.start();
    desk.waitUntilLearned();
    QCOMPARE(::kill(pid_t(program.processID()), signal), 0);
    QCOMPARE(program.status(), 0);
    QCOMPARE(program.complaints(), QStringList());
}

void TrayTest::aLostServerIsSaidOnce()
{
    Desk desk;
    Program program;
    program.start();
    desk.waitUntilLearned();
    desk.server.kill();
    QCOMPARE(program.status(), 1);
    QCOMPARE(program.complaints(),
             QStringList{QStringLiteral("panorel: the connection to the X server is gone")});
}

void TrayTest::withoutAServerTheProgramSaysSo()
{
    const TestServer server;
    const QByteArray display = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    Program program;
    program.start();
    QCOMPARE(program.status(), 1);
    QCOMPARE(program.complaints(),
             QStringList{QStringLiteral("panorel: there is no X11 session (DISPLAY is not set)")});
    qputenv("DISPLAY", display);
}

QTEST_GUILESS_MAIN(TrayTest)
#include "TrayTest.moc"
