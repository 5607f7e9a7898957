#include "PanorelCore/Desks/ConfigID.h"
#include "PanorelCore/Matching/WindowMatcher.h"

#include <QTest>

using namespace Panorel;

namespace {

/// Windows as "APPLICATION:TITLE" or "APPLICATION:TITLE@WIDTHxHEIGHT", in order; 800 x 600 where no
/// size is given. Chosen: for each saved window the place of the live one, or "-".
struct Case {
    const char *name;
    const char *saved;
    const char *live;
    const char *chosen;
};

constexpr Case cases[] = {
    {"another application's window", "a:T", "b:T A:T", "-"},
    {"title of another case is not exact", "a:Mail", "a:mail a:Mail", "1"},
    {"exact title beats equal size", "a:T@9x9", "a:U@9x9 a:T", "1"},
    {"one title: first to first, second to second", "a:T a:T", "b:T a:T a:T", "1 2"},
    {"the second of one title is exact too", "a:T a:T", "a:T a:Tx a:T@9x9", "0 2"},
    {"two empty titles are equal", "a:@1x1", "a:X@1x1 a:", "1"},
    {"later exact match before an earlier scored one", "a:Rep a:Report", "a:Report", "- 0"},
    {"saved title begins the live one", "a:Report", "a:Inbox a:Report2", "1"},
    {"empty live title begins every saved one", "a:Report", "a:Inbox a:", "1"},
    {"empty saved title begins none", "a:", "a:Inbox a:Report", "0"},
    {"a prefix weighs 1000 points: level", "a:R@2000x9", "a:X@2000x9 a:Rep@1000x9", "0"},
    {"a prefix weighs 1000 points: more", "a:R@2000x9", "a:X@2000x9 a:Rep@1001x9", "1"},
    {"width and height add up", "a:T@1000x1000", "a:X@900x900 a:Y@1000x850", "1"},
    {"a window is given once", "a:T a:U a:V", "a:X a:Y", "0 1 -"},
};

/// Each at a place of its own, since places play no part.
std::vector<WindowRecord> windows(const char *text, double at)
{
    std::vector<WindowRecord> result;
    for (const QString &word : QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts)) {
        WindowRecord record;
        record.bundleID = word.section(u':', 0, 0);
        record.title = word.section(u':', 1).section(u'@', 0, 0);
        const QString size =
            word.contains(u'@') ? word.section(u'@', 1) : QStringLiteral("800x600");
        record.frame = {at, 0, size.section(u'x', 0, 0).toDouble(),
                        size.section(u'x', 1).toDouble()};
        record.zOrder = qint64(result.size());
        result.push_back(record);
        at += 500;
    }
    return result;
}

} // namespace

class MatchingTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void savedWindowsFindTheirLiveOnes()
    {
        for (const Case &row : cases) {
            const auto records = windows(row.saved, 3000);
            std::vector<LiveWindow> live;
            for (const WindowRecord &window : windows(row.live, 0)) // ids are not positions
                live.push_back({40 + window.zOrder, window.bundleID, window.title, window.frame});

            QStringList chosen;
            const auto results = WindowMatcher::match(records, live);
            for (std::size_t i = 0; i < results.size(); ++i) {
                QVERIFY(results[i].record == records.at(i));
                const auto id = results[i].liveID;
                chosen.append(id ? QString::number(*id - 40) : QStringLiteral("-"));
            }
            const QString name = QLatin1String(row.name) + QStringLiteral(": ");
            QCOMPARE(name + chosen.join(u' '), name + QLatin1String(row.chosen));
        }
    }

    void aDeskIsItsDisplaysInAnyOrder()
    {
        const auto builtin = QStringLiteral("00000610-0000-0000-A050-00000000");
        const auto large = QStringLiteral("00001E6D-0000-0000-5B09-0001E240");
        const auto both = QStringLiteral("5e6efa3301ea3ea3a0acb7c6d917d4d7");
        QCOMPARE(ConfigID::compute({}), QStringLiteral("d41d8cd98f00b204e9800998ecf8427e"));
        QCOMPARE(ConfigID::compute({builtin, large}), both);
        QCOMPARE(ConfigID::compute({large.toLower(), builtin}), both);
        QCOMPARE(ConfigID::compute({builtin, builtin}),
                 QStringLiteral("d0e35081ca1c05c847ef34bf3681f77c"));
    }
};

QTEST_GUILESS_MAIN(MatchingTests)
#include "MatchingTests.moc"
