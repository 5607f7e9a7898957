#include "PanorelCore/Triggers/TriggerStore.h"
#include "Support/TestDataDir.h"

#include <QFile>
#include <QTest>

using namespace Panorel;

namespace {

const QString triggersFile = QStringLiteral("triggers.json");
const QUuid first(QStringLiteral("{0a0b0c0d-0000-4000-8000-00000000000f}"));
const QUuid second(QStringLiteral("{0a0b0c0d-0000-4000-8000-00000000000e}"));

TriggerRecord daily(const QUuid &id, qint64 hour)
{
    return {id, {}, {TimeTrigger{hour, 0, {}}}, true};
}

/// A file with one trigger of that kind.
QByteArray fileWith(const QByteArray &kind)
{
    return R"([{"id": "0A0B0C0D-0000-4000-8000-00000000000F", "enabled": true, "kind": )" + kind
           + R"(, "sceneID": "00000000-0000-0000-0000-000000000000", "future": 1}])";
}

} // namespace

class TriggersTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void triggersStandInTheOrderAdded()
    {
        TestDataDir dir;
        TriggerStore store(dir.log, dir.clock);
        store.add(daily(first, 1));
        store.add(daily(second, 2));
        store.add(daily(first, 3)); // a copy by hand has the same id
        store.update(daily(first, 4));
        const std::vector expected{daily(first, 4), daily(second, 2), daily(first, 3)};
        QVERIFY(store.all() == expected);
        QVERIFY(TriggerStore(dir.log, dir.clock).all() == expected);
        store.remove(store.all()[0].id); // both, though the id goes with the first
        QVERIFY(TriggerStore(dir.log, dir.clock).all() == std::vector{daily(second, 2)});
    }

    void bothKindsAreWrittenInOneWay()
    {
        const std::vector<TriggerRecord> triggers{
            {first, second, {TimeTrigger{9, 30, {6, 2, 4}}}, true},
            {second, first, {CalendarVideoTrigger{2}}, false}};
        const QByteArray expected = R"([
            { "enabled": true, "id": "0A0B0C0D-0000-4000-8000-00000000000F",
              "kind": { "time": { "hour": 9, "minute": 30, "weekdays": [ 2, 4, 6 ] } },
              "sceneID": "0A0B0C0D-0000-4000-8000-00000000000E" },
            { "enabled": false, "id": "0A0B0C0D-0000-4000-8000-00000000000E",
              "kind": { "calendarVideo": { "leadMinutes": 2 } },
              "sceneID": "0A0B0C0D-0000-4000-8000-00000000000F" } ])";
        const QByteArray written = PanorelJSON::encoder().encode(triggers);
        QCOMPARE(written.simplified(), expected.simplified());
        QVERIFY(PanorelJSON::decoder().decode<std::vector<TriggerRecord>>(written) == triggers);
    }

    void numbersAreReadUnchecked()
    {
        const std::pair<const char *, TriggerKind> rows[] = {
            {R"({"tides": {}, "time": {"hour": 99, "minute": -1, "weekdays": [9, 2, 9.0], "x": 0}})",
             {TimeTrigger{99, -1, {2, 9}}}},
            {R"({"calendarVideo": {"leadMinutes": -9223372036854775808}})",
             {CalendarVideoTrigger{std::numeric_limits<qint64>::min()}}}};
        for (const auto &[kind, expected] : rows) {
            TestDataDir dir;
            dir.write(triggersFile, fileWith(kind));
            const TriggerStore store(dir.log, dir.clock);
            QVERIFY(store.all() == (std::vector<TriggerRecord>{{first, {}, expected, true}}));
        }
    }

    void aKindThatIsNoneMovesTheFileAside()
    {
        const char *const notOne = "Invalid number of keys found, expected one. at [0].kind";
        const std::pair<const char *, const char *> rows[] = {
            {R"({"tides": {"leadMinutes": 2}})", notOne},
            {R"({"time": null})", "expected an object at [0].kind.time"},
            {R"({"time": {"hour": 9, "minute": 0}})", "missing key at [0].kind.time.weekdays"},
            {R"({"calendarVideo": {"leadMinutes": 2.5}})",
             "expected an integer at [0].kind.calendarVideo.leadMinutes"}};
        for (const auto &[kind, fault] : rows) {
            TestDataDir dir;
            dir.write(triggersFile, fileWith(kind));
            QVERIFY2(TriggerStore(dir.log, dir.clock).all().empty(), kind);
            QVERIFY2(!QFile::exists(dir.path(triggersFile)), kind);
            QVERIFY2(dir.logged().value(0).contains(QString::fromLatin1(fault)), kind);
        }
    }

    void aTriggerIsDescribedAndKnowsWhetherItsTimeExists()
    {
        const std::tuple<TriggerKind, const char *, bool> rows[] = {
            {{TimeTrigger{9, 5, {6, 2, 4}}}, "At 9:05 on Mon, Wed, Fri", true},
            {{TimeTrigger{23, 59, {2, 3, 4, 5, 6}}}, "At 23:59 every weekday", true},
            {{TimeTrigger{8, 0, {0, 8}}}, "At 8:00 on ", false},
            {{TimeTrigger{24, 0, {}}}, "At 24:00 every day", false},
            {{TimeTrigger{0, -1, {}}}, "At 0:-1 every day", false}};
        for (const auto &[kind, expected, exists] : rows) {
            QCOMPARE(kind.description(), QString::fromLatin1(expected));
            QVERIFY2(kind.time()->canFire() == exists, expected);
        }
    }
};

QTEST_GUILESS_MAIN(TriggersTests)
#include "TriggersTests.moc"
