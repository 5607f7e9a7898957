#include "PanorelCore/Triggers/TriggerStore.h"
#include "PanorelEngine/MissionControl/MissionControlCheck.h"
#include "PanorelEngine/Triggers/CalendarTriggerMonitor.h"
#include "PanorelEngine/Triggers/TimeTriggerScheduler.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

TriggerRecord at(qint64 hour, qint64 minute, const std::set<qint64> &weekdays = {})
{
    return {QUuid::createUuid(), {}, {TimeTrigger{hour, minute, weekdays}}, true};
}

TriggerRecord before(qint64 leadMinutes)
{
    return {QUuid::createUuid(), {}, {CalendarVideoTrigger{leadMinutes}}, true};
}

TriggerRecord disabled(TriggerRecord trigger)
{
    trigger.enabled = false;
    return trigger;
}

/// The engines over doubles. It is Monday, 9:20 in UTC.
struct Engines {
    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    InMemoryCalendar calendar;
    TriggerStore store{dir.log, dir.clock};
    QTimeZone zone = QTimeZone::utc();
    QStringList fired;
    std::function<void()> alsoWhenFired;
    std::unique_ptr<TimeTriggerScheduler> times = std::make_unique<TimeTriggerScheduler>(
        store, scheduler, dir.log, dir.clock,
        [this](const TriggerRecord &trigger) { note(trigger.kind.description()); },
        [this] { return zone; });
    std::unique_ptr<CalendarTriggerMonitor> monitor = std::make_unique<CalendarTriggerMonitor>(
        store, calendar, scheduler, dir.log, dir.clock,
        [this](const TriggerRecord &trigger, const QString &title) {
            const qint64 lead = trigger.kind.calendarVideo()->leadMinutes;
            note(QStringLiteral("%1 %2").arg(lead).arg(title));
        });

    explicit Engines(const std::vector<TriggerRecord> &triggers)
    {
        for (const TriggerRecord &trigger : triggers)
            store.add(trigger);
        times->reload();
    }

    void note(const QString &what)
    {
        fired.append(what);
        if (alsoWhenFired)
            alsoWhenFired();
    }
    CalendarEvent meeting(const QString &title, std::chrono::milliseconds in) const
    {
        return {title, title,
                {},    QStringLiteral("Join: https://ZOOM.us/j/1"),
                {},    dir.clock.now() + in};
    }
    Instant today(std::chrono::minutes time) const
    {
        return std::chrono::floor<std::chrono::days>(dir.clock.now()) + time;
    }
};

const QString standup = QStringLiteral("Stand-up");

} // namespace

class TriggerEnginesTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneAlarmStandsForTheEarliest()
    {
        Engines engines({at(8, 0), at(7, 30), at(9, 0), disabled(at(7, 0)), before(5)});
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(31h + 30min)});
        engines.store.update(disabled(engines.store.all()[1]));
        engines.times->reload();
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(32h)});
        engines.zone = QTimeZone("Asia/Kolkata");
        engines.times->reload();
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(24h + 2h + 30min)});
        for (const TriggerRecord &trigger : std::vector(engines.store.all()))
            engines.store.update(disabled(trigger));
        engines.times->reload();
        QVERIFY(engines.scheduler.due().empty());
    }

    void triggersFireInTurnAndOfEqualOnesTheFirst()
    {
        Engines engines({at(18, 0), at(9, 21), at(18, 0, {3})});
        engines.scheduler.advance(59s + 999ms);
        QVERIFY(engines.fired.isEmpty());
        engines.scheduler.advance(48h);
        const QString evening = QStringLiteral("At 18:00 every day");
        const QString morning = QStringLiteral("At 9:21 every day");
        QCOMPARE(engines.fired, (QStringList{morning, evening, morning, evening}));
        engines.scheduler.advance(1ms);
        QCOMPARE(engines.fired.size(), 5);
        QCOMPARE(engines.dir.logged().size(), 5);
        QCOMPARE(engines.dir.logged().last(), QStringLiteral("trigger fired: ") + morning);
    }

    void anEarlyAlarmIsSetAgainAndAMissedOneFiresOnce()
    {
        Engines engines({at(10, 0), at(11, 0)});
        engines.dir.clock.advance(-24h);
        engines.scheduler.runNextEarly();
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(10h)}); // of the new today
        QVERIFY(engines.fired.isEmpty() && engines.dir.logged().isEmpty());
        engines.dir.clock.advance(72h);
        engines.scheduler.advance(0ms);
        QCOMPARE(engines.fired, QStringList{QStringLiteral("At 10:00 every day")});
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(10h)});
    }

    void anActionMayChangeTheTriggersOrEndItsEngine()
    {
        Engines engines({at(10, 0)});
        engines.alsoWhenFired = [&] {
            engines.store.remove(engines.store.all()[0].id);
            engines.times->reload();
            engines.store.add(at(11, 0));
        };
        engines.scheduler.advance(45min);
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(11h)});
        engines.alsoWhenFired = [&] { engines.times.reset(); };
        engines.scheduler.advance(24h);
        QCOMPARE(engines.fired, (QStringList{QStringLiteral("At 10:00 every day"),
                                             QStringLiteral("At 11:00 every day")}));
        QVERIFY(engines.scheduler.due().empty());
        engines.store.add(before(5));
        engines.store.add(before(6));
        engines.calendar.all = {engines.meeting(standup, 1min)};
        engines.alsoWhenFired = [&] { engines.monitor.reset(); };
        engines.monitor->start();
        QCOMPARE(engines.fired.size(), 3);
        QCOMPARE(engines.dir.logged().size(), 1); // nobody is left to log the others
    }

    void aTimeThatNeverComesIsLeftOutAndLoggedOnce()
    {
        Engines engines({at(99, 0), at(9, 0, {9}), disabled(at(0, -1)), at(12, 0)});
        engines.times->reload();
        engines.scheduler.advance(3h);
        QCOMPARE(engines.dir.logged(),
                 (QStringList{QStringLiteral("trigger: there is no such time: At 99:00 every day"),
                              QStringLiteral("trigger: there is no such time: At 9:00 on "),
                              QStringLiteral("trigger fired: At 12:00 every day")}));
    }

    void aCalendarTriggerFiresWithinItsLeadTime()
    {
        constexpr qint64 most = std::numeric_limits<qint64>::max();
        const std::tuple<qint64, std::chrono::milliseconds, bool> rows[] = {
            {2, 90s, true},
            {2, 120s, true},
            {2, 120001ms, false},
            {2, 1ms, true},
            {2, 0ms, false},
            {2, -1s, false},
            {0, 1ms, false},
            {-5, 1s, false},
            {most, 59min, true},
            {90, 59min, true},
            {std::numeric_limits<qint64>::min(), 1s, false}};
        for (const auto &[lead, startsIn, fires] : rows) {
            Engines engines({before(lead)});
            engines.calendar.all = {engines.meeting(standup, startsIn)};
            engines.monitor->tick();
            QCOMPARE(engines.fired.size(), fires ? 1 : 0);
        }
    }

    void theLinkMayStandInAnyTextOfTheEvent()
    {
        Engines engines({before(5)});
        const QString link = QStringLiteral("meet.google.com/x");
        const QString half = QStringLiteral("meet."); // and its rest in the next text
        const Instant soon = engines.dir.clock.now() + 1min;
        const auto id = [](int number) { return QString::number(number); };
        engines.calendar.all = {{id(1), link, {}, {}, {}, soon},
                                {id(2), {}, link, {}, {}, soon},
                                {id(3), {}, {}, link, {}, soon},
                                {id(4), {}, {}, {}, link, soon},
                                {id(5), half, QStringLiteral("google.com"), {}, {}, soon},
                                {{}, {}, {}, {}, link, soon},
                                {id(7), {}, {}, {}, link, {}}};
        engines.monitor->tick();
        const QString untitled = QStringLiteral("5 meeting");
        QCOMPARE(engines.fired,
                 (QStringList{QStringLiteral("5 ") + link, untitled, untitled, untitled}));
        QCOMPARE(engines.dir.logged().last(),
                 QStringLiteral("calendar trigger fired for “meeting”"));
    }

    void anOccurrenceFiresInOnePassOnly()
    {
        Engines engines({before(5), before(1), disabled(before(9)), before(10), at(23, 0)});
        engines.calendar.all = {engines.meeting(standup, 4min + 30s),
                                engines.meeting(QStringLiteral("Later"), 15min)};
        engines.monitor->start();
        engines.monitor->start();
        QCOMPARE(engines.calendar.queries, 1);
        engines.scheduler.advance(10min);
        QCOMPARE(engines.calendar.queries, 11);
        QCOMPARE(engines.fired,
                 (QStringList{QStringLiteral("5 Stand-up"), QStringLiteral("10 Stand-up"),
                              QStringLiteral("10 Later")}));
    }

    void withoutATriggerOrAccessTheCalendarIsLeftAlone()
    {
        Engines none({at(9, 21), disabled(before(5))});
        none.monitor->start();
        none.scheduler.advance(1h);
        QCOMPARE(none.calendar.queries, 0);
        using enum CalendarAuthorization;
        for (const auto status : {NotDetermined, Restricted, Denied, WriteOnly}) {
            Engines engines({before(5)});
            engines.calendar.status = status;
            engines.monitor->start();
            QCOMPARE(engines.monitor->authorization(), status);
            bool granted = true;
            engines.monitor->requestAccess([&](bool answer) { granted = answer; });
            QVERIFY(!granted && engines.calendar.queries == 0);
            engines.calendar.status = FullAccess;
            engines.scheduler.advance(1min);
            QCOMPARE(engines.calendar.queries, 1);
        }
    }

    void aCalendarThatHangsIsAskedAgainAndItsLateAnswerDropped()
    {
        Engines engines({before(5)});
        engines.calendar.isSlow = true;
        engines.calendar.all = {engines.meeting(QStringLiteral("Cancelled since"), 4min)};
        engines.monitor->start();
        engines.scheduler.advance(59s);
        engines.monitor->tick();
        QCOMPARE(engines.calendar.queries, 1);
        engines.scheduler.advance(1s);
        QCOMPARE(engines.calendar.queries, 2);
        engines.calendar.all = {engines.meeting(standup, 4min)};
        engines.scheduler.advance(1min);
        QCOMPARE(engines.calendar.queries, 3);
        const QStringList once{QStringLiteral("calendar: no answer within a minute, asking again")};
        QCOMPARE(engines.dir.logged(), once);
        engines.calendar.answer();
        QCOMPARE(engines.fired, QStringList{QStringLiteral("5 Stand-up")});
        engines.scheduler.advance(2min); // asks, then finds that it hangs anew
        QCOMPARE(engines.dir.logged().filter(once[0]).size(), 2);
    }

    void whatCountsIsHowThingsStandWhenTheAnswerComes()
    {
        const std::function<void(Engines &)> changes[] = {
            [](Engines &engines) { engines.store.update(disabled(engines.store.all()[0])); },
            [](Engines &engines) { engines.calendar.status = CalendarAuthorization::Denied; },
            [](Engines &engines) { engines.dir.clock.advance(30s); }, // it has begun
            [](Engines &engines) { engines.monitor.reset(); },
        };
        for (const auto &change : changes) {
            Engines engines({before(5)});
            engines.calendar.isSlow = true;
            engines.calendar.all = {engines.meeting(standup, 30s)};
            engines.monitor->tick();
            engines.monitor->requestAccess([&](bool) { QVERIFY(engines.monitor); });
            change(engines);
            engines.calendar.answer();
            QVERIFY(engines.fired.isEmpty());
        }
        Engines engines({before(1)});
        engines.calendar.isSlow = true;
        engines.calendar.all = {engines.meeting(standup, 90s)};
        engines.monitor->tick();
        engines.dir.clock.advance(30s);
        engines.calendar.answer();
        QCOMPARE(engines.fired.size(), 1); // not yet reached when asked
    }

    void spacesCountAsSeparateUnlessTheSettingSaysOtherwise()
    {
        InMemoryPlatform platform;
        SystemPreferencesPort &port = *platform.systemPreferences();
        QVERIFY(MissionControlCheck::separateSpacesEnabled(port));
        const std::pair<PreferenceValue, bool> rows[] = {
            {true, false}, {false, true}, {1.0, false},
            {0.0, true},   {2.0, true},   {QStringLiteral("true"), true}};
        for (const auto &[value, expected] : rows) {
            platform.preferences[QStringLiteral("com.apple.spaces spans-displays")] = value;
            QCOMPARE(MissionControlCheck::separateSpacesEnabled(port), expected);
        }
        MissionControlCheck::openSettings(port);
        QCOMPARE(platform.desktopSettingsOpened, 1);
    }
};

QTEST_GUILESS_MAIN(TriggerEnginesTests)
#include "TriggerEnginesTests.moc"
