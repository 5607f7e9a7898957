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
        Engines engines({at(8, 0), at(7, 30), at(99, 0), disabled(at(7, 0)), before(5)});
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(31h + 30min)});
        engines.store.update(disabled(engines.store.all()[1]));
        engines.times->reload();
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(32h)});
        engines.zone = QTimeZone("Asia/Kolkata");
        engines.times->reload();
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(24h + 2h + 30min)});
    }

    void anEarlyAlarmIsSetAgainAndAMissedOneFiresOnce()
    {
        Engines engines({at(10, 0), at(11, 0)});
        engines.dir.clock.advance(-24h);
        engines.scheduler.runNextEarly();
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(10h)}); // of the new today
        QVERIFY(engines.fired.isEmpty());
        engines.dir.clock.advance(72h);
        engines.scheduler.advance(0ms);
        QCOMPARE(engines.fired, QStringList{QStringLiteral("At 10:00 every day")});
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(10h)});
    }

    void anActionMayChangeTheTriggersOrEndItsEngine()
    {
        Engines engines({at(10, 0), before(5), before(6)});
        engines.alsoWhenFired = [&] {
            engines.store.remove(engines.store.all()[0].id);
            engines.store.add(at(11, 0));
            engines.times->reload();
        };
        engines.scheduler.advance(45min);
        QCOMPARE(engines.scheduler.due(), std::vector{engines.today(11h)});
        engines.alsoWhenFired = [&] { engines.times.reset(); };
        engines.scheduler.advance(24h);
        QCOMPARE(engines.fired.size(), 2);
        engines.calendar.all = {engines.meeting(standup, 1min)};
        engines.alsoWhenFired = [&] { engines.monitor.reset(); };
        engines.monitor->start();
        QCOMPARE(engines.fired.size(), 3);
    }

    void aCalendarTriggerFiresWithinItsLeadTime()
    {
        constexpr qint64 most = std::numeric_limits<qint64>::max();
        const std::tuple<qint64, std::chrono::milliseconds, bool> rows[] = {
            {2, 120s, true}, {2, 120001ms, false}, {2, 1ms, true},
            {2, 0ms, false}, {-5, 1s, false},      {most, 59min, true}};
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
        const Instant soon = engines.dir.clock.now() + 1min;
        const auto id = [](int number) { return QString::number(number); };
        engines.calendar.all = {{id(1), link, {}, {}, {}, soon},    {id(2), {}, link, {}, {}, soon},
                                {id(3), {}, {}, link, {}, soon},    {id(4), {}, {}, {}, link, soon},
                                {id(5), standup, {}, {}, {}, soon}, {{}, {}, {}, {}, link, soon},
                                {id(7), {}, {}, {}, link, {}}};
        engines.monitor->tick();
        const QString untitled = QStringLiteral("5 meeting");
        QCOMPARE(engines.fired,
                 (QStringList{QStringLiteral("5 ") + link, untitled, untitled, untitled}));
    }

    void anOccurrenceFiresInOnePassOnly()
    {
        Engines engines({before(5), before(1), disabled(before(9)), before(10), at(23, 0)});
        engines.calendar.all = {engines.meeting(standup, 4min + 30s),
                                engines.meeting(QStringLiteral("Later"), 15min)};
        engines.monitor->start();
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
            QCOMPARE(engines.calendar.queries, 0);
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
        QCOMPARE(engines.dir.logged().size(), 1);
        engines.calendar.answer();
        QCOMPARE(engines.fired, QStringList{QStringLiteral("5 Stand-up")});
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
            change(engines);
            engines.calendar.answer();
            QVERIFY(engines.fired.isEmpty());
        }
    }

    void spacesCountAsSeparateUnlessTheyAreSaidToSpan()
    {
        InMemoryPlatform platform;
        SystemPreferencesPort &port = *platform.systemPreferences();
        QVERIFY(MissionControlCheck::separateSpacesEnabled(port));
        platform.preferences[QStringLiteral("com.apple.spaces spans-displays")] = true;
        QVERIFY(!MissionControlCheck::separateSpacesEnabled(port));
    }
};

QTEST_GUILESS_MAIN(TriggerEnginesTests)
#include "TriggerEnginesTests.moc"
