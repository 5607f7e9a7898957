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
};
using Displays = std::vector<Connected>;

struct Desk : EngineSession {
    Desk() : EngineSession(QString(), {Plugged{}}) {}

    /// The desk's identity once these displays, and no others, are there.
    QString connect(const Displays &displays)
    {
        std::vector<Plugged> outputs;
        for (const auto &[output, x, serial, flaw] : displays) {
            server.setEdid(output, QStringLiteral("Display"), serial,
                           QString::fromLatin1(serial == 0 ? "missing" : flaw));
            outputs.push_back({output, x});
        }
        server.plug(outputs);
        QStringList identifiers;
        for (const DisplayInfo &display : capture().displays)
            identifiers << display.edidUUID;
        return identifiers.size() == qsizetype(displays.size()) ? ConfigID::compute(identifiers)
                                                                : QString();
    }

    QString identityAt(double x)
    {
        const auto displays = capture().displays;
        return std::ranges::find(displays, x,
                                 [](const DisplayInfo &display) { return display.frame.x; })
            ->edidUUID;
    }
};

} // namespace

/// What the displays of a real server say, and don't say, beyond what every platform's do.
class ScreensTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDeskIsItsDisplaysWhereverTheyArePluggedIn();
    void twoDisplaysThatSwapPlacesStayThemselves();
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
        {"another connector", pair, {{0, 0, 11}, {7, 1920, 12}}, true},
        {"another display of the same model", pair, {{0, 0, 11}, {1, 1920, 13}}, false},
        {"one of two gone, as under a closed lid", pair, {{1, 0, 12}}, false},
        {"twins exchanged", twins, {{1, 0, 11}, {0, 1920, 11}}, true},
        {"twins on other connectors", twins, {{4, 0, 11}, {2, 1920, 11}}, true},
        {"one of two twins", twins, {{0, 0, 11}}, false},
        {"nameless, exchanged places", nameless, {{1, 0}, {0, 1920}}, true},
        {"nameless, another connector", nameless, {{0, 0}, {2, 1920}}, false},
        {"one that no longer says who it is", pair, {{0, 0, 11}, {1, 1920}}, false},
        // As if it said nothing.
        {"wrong checksum", nameless, {{0, 0}, {1, 1920, 12, "checksum"}}, true},
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
    desk.connect({{0, 0, 11}, {1, 1920, 12}});
    const QString left = desk.identityAt(0);
    const QString right = desk.identityAt(1920);
    QVERIFY(left != right);
    desk.connect({{1, 0, 12}, {0, 1920, 11}});
    QCOMPARE(desk.identityAt(0), right);
    QCOMPARE(desk.identityAt(1920), left);
}

QTEST_GUILESS_MAIN(ScreensTest)
#include "ScreensTest.moc"
