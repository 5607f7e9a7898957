#include "Desktop/Support/DesktopSession.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

struct Desk : EngineSession {
    Desk() : EngineSession(QString(), {Plugged{}}) {}

    ScreensPort &screens() const { return platform->screens(); }

    std::optional<Screen> screenAt(double x) const
    {
        for (const Screen &screen : screens().screens()) {
            if (screen.frame.x == x)
                return screen;
        }
        return {};
    }
    DisplayIdentity identityAt(double x) const
    {
        return screens().identity(screenAt(x).value().displayNumber.value());
    }
};

} // namespace

/// What the displays of a real server say, and don't say, beyond what every platform's do.
class ScreensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoDisplaysThatSwapPlacesStayThemselves();
    void aPropertyChangeIsNoDisplayChange();
    void aServerThatGoesAwayIsReportedOnce();
};

void ScreensTest::twoDisplaysThatSwapPlacesStayThemselves()
{
    Desk desk;
    desk.server.setEdid(1, QStringLiteral("Wide 27"), 77);
    desk.server.plug(sideBySide());
    const auto serialAt = [&](double x) { return desk.identityAt(x).serialNumber; };
    require([&] { return desk.screenAt(1920).has_value() && serialAt(1920) == 77; }, "the plug");
    const DisplayIdentity left = desk.identityAt(0);
    const DisplayIdentity right = desk.identityAt(1920);
    QVERIFY(left.uuid != right.uuid);
    QCOMPARE(right.vendorNumber, 0x41D2U);
    QCOMPARE(right.modelNumber, 0x24U);
    QCOMPARE(desk.screenAt(1920)->localizedName, QStringLiteral("Wide 27"));

    desk.server.plug({{.output = 1}, {.output = 0, .x = 1920}});
    require([&] { return serialAt(0) == 77; }, "the swap");
    QCOMPARE(desk.identityAt(0).uuid, right.uuid);
    QCOMPARE(desk.identityAt(1920).uuid, left.uuid);
}

void ScreensTest::aPropertyChangeIsNoDisplayChange()
{
    Desk desk;
    int announced = 0;
    desk.screens().setChangeCallback([&] { ++announced; });
    desk.server.setEdid(0, QStringLiteral("Other"), 1);
    desk.probe.sync(); // by now the server has sent the event to everybody
    QCoreApplication::processEvents();
    QCOMPARE(announced, 0);
    desk.server.plug(sideBySide());
    QTRY_VERIFY(announced > 0);
}

void ScreensTest::aServerThatGoesAwayIsReportedOnce()
{
    Desk desk;
    QStringList reasons;
    desk.platform->setLostCallback([&](const QString &reason) { reasons << reason; });
    desk.server.kill();
    require([&] { return !reasons.isEmpty(); }, "the report of the loss");
    QVERIFY(!reasons.first().isEmpty());
    QVERIFY(desk.screens().screens().empty());
    QVERIFY(desk.platform->workspace().runningApplications().empty());
    QVERIFY(!desk.platform->accessibility().isTrusted());
    QCOMPARE(reasons.size(), 1);
}

QTEST_GUILESS_MAIN(ScreensTest)
#include "ScreensTest.moc"
