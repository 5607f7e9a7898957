#include "PanorelCore/Desks/ConfigID.h"
#include "PanorelCore/Matching/CoordSpace.h"
#include "PanorelCore/Matching/RestoreReport.h"
#include "PanorelCore/Matching/WindowMatcher.h"

#include <QTest>

using namespace Panorel;

namespace {

struct Window {
    const char *bundleID;
    const char *title;
    Size size = {800, 600};
    Point at = {};
};

constexpr qint64 none = -1;

struct Case {
    const char *name;
    std::vector<Window> saved;
    std::vector<Window> live;
    std::vector<qint64> chosen; ///< for each saved window the index of the live one
};

const std::vector<Case> &cases()
{
    static const std::vector<Case> table{
        {"nothing saved", {}, {{"a", "T"}}, {}},
        {"nothing live", {{"a", "T"}, {"a", "U"}}, {}, {none, none}},
        {"another application's window", {{"a", "T"}}, {{"b", "T"}, {"A", "T"}}, {none}},
        {"title of another case is not exact",
         {{"a", "Mail"}},
         {{"a", "mail"}, {"a", "Mail"}},
         {1}},
        {"exact title beats equal size",
         {{"a", "T", {9, 9}}},
         {{"a", "U", {9, 9}}, {"a", "T"}},
         {1}},
        {"one title: first to first, second to second",
         {{"a", "T"}, {"a", "T"}},
         {{"b", "T"}, {"a", "T"}, {"a", "T"}},
         {1, 2}},
        {"two empty titles are equal", {{"a", "", {1, 1}}}, {{"a", "x", {1, 1}}, {"a", ""}}, {1}},
        {"a later exact match before an earlier scored one",
         {{"a", "Rep"}, {"a", "Report"}},
         {{"a", "Report"}},
         {none, 0}},
        {"saved title begins the live one",
         {{"a", "Report"}},
         {{"a", "Inbox"}, {"a", "Report 2"}},
         {1}},
        {"live title begins the saved one",
         {{"a", "Report 2"}},
         {{"a", "Inbox"}, {"a", "Report"}},
         {1}},
        {"an empty live title begins every saved one",
         {{"a", "Report"}},
         {{"a", "Inbox"}, {"a", ""}},
         {1}},
        {"an empty saved title begins none", {{"a", ""}}, {{"a", "Inbox"}, {"a", "Report"}}, {0}},
        {"title prefix against size: 1000 points off is level, so the earlier",
         {{"a", "Re", {2000, 600}}},
         {{"a", "X", {2000, 600}}, {"a", "Report", {1000, 600}}},
         {0}},
        {"title prefix against size: 999 points off wins",
         {{"a", "Re", {2000, 600}}},
         {{"a", "X", {2000, 600}}, {"a", "Report", {1001, 600}}},
         {1}},
        {"width and height differences add up",
         {{"a", "T", {1000, 1000}}},
         {{"a", "X", {900, 900}}, {"a", "Y", {1000, 850}}},
         {1}},
        {"beyond 2000 points sizes are level",
         {{"a", "", {3000, 3000}}},
         {{"a", "X", {100, 100}}, {"a", "Y", {900, 900}}},
         {0}},
        {"the last window is given whatever its score",
         {{"a", "", {5000, 5000}}},
         {{"a", "X", {1, 1}}},
         {0}},
        {"a window is given once, the next best follows",
         {{"a", "T"}, {"a", "U"}, {"a", "V"}},
         {{"a", "X"}, {"a", "Y"}},
         {0, 1, none}},
        {"positions play no part",
         {{"a", "T", {800, 600}, {5000, 0}}},
         {{"a", "X"}, {"a", "Y", {800, 600}, {5000, 0}}},
         {0}},
    };
    return table;
}

} // namespace

class MatchingTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void savedWindowsFindTheirLiveOnes_data()
    {
        QTest::addColumn<qsizetype>("index");
        for (std::size_t i = 0; i < cases().size(); ++i)
            QTest::newRow(cases()[i].name) << qsizetype(i);
    }

    void savedWindowsFindTheirLiveOnes()
    {
        QFETCH(qsizetype, index);
        const Case &row = cases()[std::size_t(index)];
        constexpr qint64 firstID = 40; // ids are not positions
        std::vector<WindowRecord> records;
        for (const Window &window : row.saved) {
            WindowRecord record;
            record.bundleID = QString::fromLatin1(window.bundleID);
            record.title = QString::fromLatin1(window.title);
            record.frame = Rect::of(window.at, window.size);
            record.zOrder = qint64(records.size());
            records.push_back(record);
        }
        std::vector<LiveWindow> live;
        for (const Window &window : row.live)
            live.push_back({firstID + qint64(live.size()), QString::fromLatin1(window.bundleID),
                            QString::fromLatin1(window.title), Rect::of(window.at, window.size)});

        const auto results = WindowMatcher::match(records, live);
        QCOMPARE(results.size(), records.size());
        for (std::size_t i = 0; i < results.size(); ++i) {
            QVERIFY(results[i].record == records[i]);
            QCOMPARE(results[i].liveID.value_or(firstID + none), firstID + row.chosen[i]);
        }
    }

    void aDeskIsItsDisplaysInAnyOrder_data()
    {
        QTest::addColumn<QStringList>("displays");
        QTest::addColumn<QString>("configID");
        const auto builtin = QStringLiteral("00000610-0000-0000-A050-00000000");
        const auto large = QStringLiteral("00001E6D-0000-0000-5B09-0001E240");
        const auto both = QStringLiteral("5e6efa3301ea3ea3a0acb7c6d917d4d7");
        QTest::newRow("none") << QStringList()
                              << QStringLiteral("d41d8cd98f00b204e9800998ecf8427e");
        QTest::newRow("one") << QStringList{builtin}
                             << QStringLiteral("1f324e5987a16993fe04d5e17a1c406f");
        QTest::newRow("two") << QStringList{builtin, large} << both;
        QTest::newRow("two, the other way round") << QStringList{large, builtin} << both;
        QTest::newRow("lower case") << QStringList{large.toLower(), builtin.toLower()} << both;
        QTest::newRow("the same twice")
            << QStringList{builtin, builtin} << QStringLiteral("d0e35081ca1c05c847ef34bf3681f77c");
    }

    void aDeskIsItsDisplaysInAnyOrder()
    {
        QFETCH(QStringList, displays);
        QTEST(ConfigID::compute(displays), "configID");
    }

    void aScreenTurnsOverAndBack()
    {
        const Rect screen{0, 0, 100, 50};
        const Rect turned{0, 950, 100, 50};
        QVERIFY(CoordSpace::flip(screen, 1000) == turned);
        QVERIFY(CoordSpace::flip(turned, 1000) == screen);
        QVERIFY(CoordSpace::flip({-7, 1100, 10, 20}, 1000) == (Rect{-7, -120, 10, 20}));
    }

    void theReportIsOneLine()
    {
        QCOMPARE((RestoreReport{3, 1, 1, 0.42, {}}).summary(),
                 QStringLiteral("3/5 restored, 1 failed, 1 skipped, 0.42s"));
        QCOMPARE((RestoreReport{0, 0, 0, 12.3456, {}}).summary(),
                 QStringLiteral("0/0 restored, 0 failed, 0 skipped, 12.35s"));
    }
};

QTEST_GUILESS_MAIN(MatchingTests)
#include "MatchingTests.moc"
