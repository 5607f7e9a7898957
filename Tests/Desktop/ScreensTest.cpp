#include "Desktop/Support/DesktopSession.h"
#include "PanorelCore/Desks/ConfigID.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

/// A display: where it is plugged in, and who it says it is.
struct Connected {
    int output;
    int x;
    int serial = 0; ///< 0: it says nothing
    const char *flaw = "";
    int width = 1920;
};
using Displays = std::vector<Connected>;

struct Desk : EngineSession {
    Desk() : EngineSession(QString(), {Plugged{}}) {}

    /// The desk's identity once these displays, and no others, are there.
    QString connect(const Displays &displays)
    {
        std::vector<Plugged> outputs;
        for (const auto &[output, x, serial, flaw, width] : displays) {
            server.setEdid(output, QStringLiteral("Display"), serial,
                           QString::fromLatin1(serial == 0 ? "missing" : flaw));
            outputs.push_back({output, x, 0, width, width == 1920 ? 1080 : 1024});
        }
        server.plug(outputs);
        QStringList identifiers;
        for (const DisplayInfo &display : capture().displays)
            identifiers << display.edidUUID;
        return identifiers.size() == qsizetype(displays.size()) ? ConfigID::compute(identifiers)
                                                                : QString();
    }

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
    void aDeskIsItsDisplaysWhereverTheyArePluggedIn();
    void twoDisplaysThatSwapPlacesStayThemselves();
    void aPropertyChangeIsNoDisplayChange();
    void aServerThatGoesAwayIsReportedOnce();
};

void ScreensTest::aDeskIsItsDisplaysWhereverTheyArePluggedIn()
{
    const Displays pair{{0, 0, 11}, {1, 1920, 12}};
    const Displays twins{{0, 0, 11}, {1, 1920, 11}};
    const Displays nameless{{0, 0}, {1, 1920}};
    const struct {
        const char *name;
        Displays before;
        Displays after;
        bool isSameDesk;
    } rows[] = {
        {"exchanged places", pair, {{1, 0, 12}, {0, 1920, 11}}, true},
        {"exchanged connectors", pair, {{1, 0, 11}, {0, 1920, 12}}, true},
        {"exchanged places and connectors", pair, {{0, 0, 12}, {1, 1920, 11}}, true},
        {"another connector", pair, {{0, 0, 11}, {7, 1920, 12}}, true},
        {"another mode, further away", pair, {{0, 0, 11}, {1, 2500, 12, "", 1280}}, true},
        {"another display of the same model", pair, {{0, 0, 11}, {1, 1920, 13}}, false},
        {"a third display", pair, {{0, 0, 11}, {1, 1920, 12}, {2, 3840, 13}}, false},
        {"one of two gone, as under a closed lid", pair, {{1, 0, 12}}, false},
        {"twins exchanged", twins, {{1, 0, 11}, {0, 1920, 11}}, true},
        {"twins on other connectors", twins, {{4, 0, 11}, {2, 1920, 11}}, true},
        {"one of two twins", twins, {{0, 0, 11}}, false},
        {"a third of the kind", twins, {{0, 0, 11}, {1, 1920, 11}, {2, 3840, 11}}, false},
        {"nameless, exchanged places", nameless, {{1, 0}, {0, 1920}}, true},
        {"nameless, another connector", nameless, {{0, 0}, {2, 1920}}, false},
        {"one that no longer says who it is", pair, {{0, 0, 11}, {1, 1920}}, false},
        // As if it said nothing.
        {"wrong checksum", nameless, {{0, 0}, {1, 1920, 12, "checksum"}}, true},
        {"cut off", nameless, {{0, 0}, {1, 1920, 12, "truncated"}}, true},
        {"noise", nameless, {{0, 0}, {1, 1920, 12, "noise"}}, true},
    };
    Desk desk;
    for (const auto &row : rows) {
        const QString first = desk.connect(row.before);
        const QString second = desk.connect(row.after);
        QVERIFY2(first.size() == 32 && second.size() == 32, row.name);
        QVERIFY2((first == second) == row.isSameDesk, row.name);
        QVERIFY2(desk.connect(row.before) == first, row.name); // and back again
    }
}

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
