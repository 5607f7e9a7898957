#include "Desktop/Support/DesktopProbe.h"
#include "Desktop/Support/TestClient.h"
#include "Desktop/Support/TestServer.h"
#include "Desktop/Support/TestWindowManager.h"
#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelPorts/Platform.h"
#include "Support/FakeScheduler.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;

/// The displays of a real server, read as the program reads them: frames in root coordinates.
class ScreensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void pluggingAndUnpluggingChangeTheDeskAndBack();
    void twoDisplaysThatSwapPlacesStayThemselves();
    void theEdidNamesTheDisplay();
    void equalModelsDifferInSerialNumberOrConnector();
    void aBrokenEdidCountsAsNone_data();
    void aBrokenEdidCountsAsNone();
    void withoutAMonitorInTheCornerFramesAreStillRootCoordinates();
    void strutsNarrowTheirOwnMonitorOnly();
    void aPropertyChangeIsNoDisplayChange();
    void aServerThatGoesAwayIsReportedOnce();

private:
    std::vector<DisplayInfo> displays() { return m_watcher->currentDisplays(); }
    DisplayInfo at(double x);
    QString desk();
    void plug(const std::vector<Plugged> &outputs);

    std::unique_ptr<TestServer> m_server;
    std::unique_ptr<TestDataDir> m_data;
    std::unique_ptr<FakeScheduler> m_scheduler;
    std::unique_ptr<Platform> m_platform;
    std::unique_ptr<DisplayWatcher> m_watcher;
};

void ScreensTest::init()
{
    m_server = std::make_unique<TestServer>();
    m_data = std::make_unique<TestDataDir>();
    m_scheduler = std::make_unique<FakeScheduler>(m_data->clock);
    m_platform = makePlatform(m_data->log, m_data->clock);
    m_watcher = std::make_unique<DisplayWatcher>(m_platform->screens(), *m_scheduler, m_data->log);
}

void ScreensTest::cleanup()
{
    m_watcher.reset();
    m_platform.reset();
    m_scheduler.reset();
    m_data.reset();
    m_server.reset();
}

DisplayInfo ScreensTest::at(double x)
{
    for (const DisplayInfo &display : displays()) {
        if (display.frame.x == x)
            return display;
    }
    qFatal("no display at %f", x);
}

QString ScreensTest::desk()
{
    m_watcher->refresh();
    return m_watcher->configID();
}

/// Plugs, and waits until the port has announced it.
void ScreensTest::plug(const std::vector<Plugged> &outputs)
{
    bool announced = false;
    m_platform->screens().setChangeCallback([&] { announced = true; });
    m_server->plug(outputs);
    require([&] { return announced && displays().size() == outputs.size(); },
            "an announced change");
    m_platform->screens().setChangeCallback({});
}

void ScreensTest::pluggingAndUnpluggingChangeTheDeskAndBack()
{
    const QString alone = desk();
    QCOMPARE(displays().size(), 1u);
    plug(sideBySide());
    const QString both = desk();
    const DisplayInfo second = at(1920);
    QVERIFY(both != alone);
    QVERIFY((second.frame == Rect{1920, 0, 1920, 1080}));

    plug({{.output = 0}});
    QCOMPARE(desk(), alone);
    plug(sideBySide());
    QCOMPARE(desk(), both);
    QVERIFY(at(1920) == second);
}

void ScreensTest::twoDisplaysThatSwapPlacesStayThemselves()
{
    plug(sideBySide());
    const QString left = at(0).uuid;
    const QString right = at(1920).uuid;
    const QString before = desk();
    QVERIFY(left != right);
    bool announced = false;
    m_platform->screens().setChangeCallback([&] { announced = true; });
    m_server->plug({{.output = 1}, {.output = 0, .x = 1920}});
    require([&] { return announced && at(0).uuid == right; }, "the swap");
    QCOMPARE(at(1920).uuid, left);
    QCOMPARE(desk(), before); // a desk is its displays, not their places
}

void ScreensTest::theEdidNamesTheDisplay()
{
    m_server->setEdid(
        1, buildEdid({.vendor = "PNR", .model = 0x1234, .serial = 77, .name = "Wide 27"}));
    plug(sideBySide());
    for (const Screen &screen : m_platform->screens().screens()) {
        if (screen.frame.x != 1920)
            continue;
        const DisplayIdentity identity =
            m_platform->screens().identity(screen.displayNumber.value());
        QCOMPARE(identity.vendorNumber, 0x41D2U);
        QCOMPARE(identity.modelNumber, 0x1234U);
        QCOMPARE(identity.serialNumber, 77U);
        QVERIFY(!identity.isBuiltin);
    }
    QCOMPARE(at(1920).name, QStringLiteral("Wide 27"));
}

void ScreensTest::equalModelsDifferInSerialNumberOrConnector()
{
    const auto model = [](std::uint32_t serial) {
        return buildEdid({.model = 5, .serial = serial, .name = "Twin"});
    };
    m_server->setEdid(0, model(1));
    m_server->setEdid(1, model(2));
    plug(sideBySide());
    QVERIFY(at(0).edidUUID != at(1920).edidUUID);
    const QString second = at(1920).edidUUID;

    plug({{.output = 0}});
    m_server->setEdid(2, model(2)); // the second display, on another connector
    plug({{.output = 0}, {.output = 2, .x = 1920}});
    QCOMPARE(at(1920).edidUUID, second);

    plug({{.output = 0}});
    m_server->setEdid(0, model(0));
    m_server->setEdid(1, model(0)); // many displays have no serial number
    plug(sideBySide());
    QVERIFY(at(0).uuid != at(1920).uuid);
}

void ScreensTest::aBrokenEdidCountsAsNone_data()
{
    const QByteArray whole = buildEdid({.model = 9, .serial = 9, .name = "Whole"});
    QByteArray wrongSum = whole;
    wrongSum[20] = 'x';
    QTest::addColumn<QByteArray>("edid");
    QTest::newRow("wrong checksum") << wrongSum;
    QTest::newRow("cut off") << whole.left(127);
    QTest::newRow("garbage") << QByteArray(128, 'x');
    QTest::newRow("empty") << QByteArray("");
}

void ScreensTest::aBrokenEdidCountsAsNone()
{
    QFETCH(QByteArray, edid);
    plug(sideBySide());
    const DisplayInfo without = at(1920);
    plug({{.output = 0}});
    m_server->setEdid(1, edid);
    plug(sideBySide());
    QVERIFY(at(1920) == without);
}

void ScreensTest::withoutAMonitorInTheCornerFramesAreStillRootCoordinates()
{
    plug({{.output = 0, .y = 600}, {.output = 1, .x = 1920}});
    QVERIFY((at(0).frame == Rect{0, 600, 1920, 1080}));
    QVERIFY((at(1920).frame == Rect{1920, 0, 1920, 1080}));
    // The primary below the other, and a gap in the corner.
    plug({{.output = 0, .y = 1080}, {.output = 1, .x = 700}});
    QVERIFY((at(0).frame == Rect{0, 1080, 1920, 1080}));
    QVERIFY((at(700).frame == Rect{700, 0, 1920, 1080}));
}

void ScreensTest::strutsNarrowTheirOwnMonitorOnly()
{
    plug(sideBySide());
    const TestWindowManager manager(QStringLiteral("openbox"));
    const auto panel = [](const char *strut, const char *geometry) {
        return QStringList{QStringLiteral("--strut"), QLatin1String(strut),
                           QStringLiteral("--geometry"), QLatin1String(geometry)};
    };
    const TestClient top(QStringLiteral("top"),
                         panel("0,0,32,0,0,0,0,0,0,1919,0,0", "0,0,1920,32"));
    const TestClient right(QStringLiteral("right"),
                           panel("0,60,0,0,0,0,0,1079,0,0,0,0", "3780,0,60,1080"));
    QVERIFY((at(0).visibleFrame == Rect{0, 32, 1920, 1048}));
    QVERIFY((at(1920).visibleFrame == Rect{1920, 0, 1860, 1080}));
}

void ScreensTest::aPropertyChangeIsNoDisplayChange()
{
    plug(sideBySide());
    int announced = 0;
    m_platform->screens().setChangeCallback([&] { ++announced; });
    m_server->setEdid(0, buildEdid({.name = "Other"}));
    DesktopProbe().sync(); // by now the server has sent the event to everybody
    QCoreApplication::processEvents();
    QCOMPARE(announced, 0);
    m_server->plug({{.output = 0}});
    QTRY_VERIFY(announced > 0);
}

void ScreensTest::aServerThatGoesAwayIsReportedOnce()
{
    QStringList reasons;
    m_platform->setLostCallback([&](const QString &reason) { reasons << reason; });
    m_server->kill();
    require([&] { return !reasons.isEmpty(); }, "the report of the loss");
    QCOMPARE(reasons.size(), 1);
    QVERIFY(!reasons.first().isEmpty());
    QVERIFY(m_platform->screens().screens().empty());
    QVERIFY(m_platform->workspace().runningApplications().empty());
    QVERIFY(!m_platform->accessibility().isTrusted());
    QCOMPARE(reasons.size(), 1);
}

QTEST_GUILESS_MAIN(ScreensTest)
#include "ScreensTest.moc"
