#include "Desktop/Support/ChildProcess.h"
#include "PanorelCore/Triggers/TriggerStore.h"
#include "PanorelEngine/Triggers/CalendarTriggerMonitor.h"
#include "PanorelX11/Calendar/DesktopCalendar.h"
#include "Support/FakeScheduler.h"
#include "Support/TestHome.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDateTime>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <QTest>

#include <csignal>

namespace Panorel::Desktop {

namespace {

using namespace std::chrono_literals;

const Instant from = Instant(std::chrono::seconds(1715590800)); // 2024-05-13T09:00:00Z
const Instant to = from + 1h;

QByteArray calendar(const QByteArray &events)
{
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:x\r\n"
           + QByteArray(events).replace("\n", "\r\n") + "END:VCALENDAR\r\n";
}

QByteArray vevent(const QByteArray &lines)
{
    return "BEGIN:VEVENT\nDTSTAMP:20240101T000000Z\n" + lines + "END:VEVENT\n";
}

/// A home and a session bus of the test's own, on which the real servers run. The process's
/// environment leads there: the libraries know one bus for each process.
class Session {
public:
    Session()
    {
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("GIO_USE_VFS", "local");
        qputenv("TZ", "Europe/Berlin");
        qunsetenv("DISPLAY");
        m_bus.emplace(); // what it starts has this environment
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus->address().toUtf8());
        m_connection = QDBusConnection::connectToBus(m_bus->address(), u"watch"_qs).interface();
    }
    ~Session() { signal(SIGKILL); }

    /// As the servers find it when they start.
    void addCalendar(const QString &name, const QByteArray &events, const QByteArray &backend,
                     bool isEnabled)
    {
        writeFile(m_home.path(u"config/evolution/sources/%1.source"_qs.arg(name)),
                  "[Data Source]\nDisplayName=" + name.toUtf8()
                      + "\nEnabled=" + (isEnabled ? "true" : "false")
                      + "\nParent=local-stub\n\n[Calendar]\nBackendName=" + backend + "\n");
        writeFile(m_home.path(u"data/evolution/calendar/%1/calendar.ics"_qs.arg(name)),
                  calendar(events));
    }

    /// The processes that serve calendars, as the bus knows them.
    std::set<uint> servers() const
    {
        std::set<uint> result;
        for (const QString &name : m_connection->registeredServiceNames().value()) {
            if (name.startsWith(u"org.gnome.evolution.dataserver.") && name.contains(u"Calendar"))
                result.insert(m_connection->servicePid(name));
        }
        return result;
    }
    int signal(int number) const
    {
        const auto pids = servers();
        for (const uint pid : pids)
            kill(static_cast<pid_t>(pid), number);
        return static_cast<int>(pids.size());
    }

private:
    const TestHome m_home;
    std::optional<SessionBus> m_bus;
    QDBusConnectionInterface *m_connection = nullptr;
};

/// They go on when the result is gone.
[[nodiscard]] auto stopServers(const Session &session)
{
    if (session.signal(SIGSTOP) == 0)
        qFatal("no servers to stop");
    return qScopeGuard([&session] { session.signal(SIGCONT); });
}

} // namespace

class EvolutionCalendarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session = std::make_unique<Session>();
        m_session->addCalendar(
            u"Work"_qs,
            vevent("UID:call\nDTSTART:20240513T093000Z\nDTEND:20240513T100000Z\n"
                   "SUMMARY:Call\nDESCRIPTION:https://zoom.us/j/1\n")
                + vevent("UID:series\nDTSTART;TZID=Europe/Berlin:20240101T114000\n"
                         "DURATION:PT10M\nRRULE:FREQ=DAILY\n")
                + vevent("UID:cancelled\nDTSTART:20240501T094500Z\nRRULE:FREQ=DAILY\n")
                + vevent("UID:cancelled\nRECURRENCE-ID:20240513T094500Z\n"
                         "DTSTART:20240513T094500Z\nSTATUS:CANCELLED\n")
                + vevent("UID:moved\nDTSTART:20240501T094600Z\nRRULE:FREQ=DAILY\n")
                + vevent("UID:moved\nRECURRENCE-ID:20240513T094600Z\nDTSTART:20240601T094600Z\n")
                + vevent("UID:day\nDTSTART;VALUE=DATE:20240513\n")
                + vevent("UID:floating\nDTSTART:20240513T115000\n"),
            "local", true);
        m_session->addCalendar(u"Off"_qs, vevent("UID:off\nDTSTART:20240513T093000Z\n"), "local",
                               false);
        m_session->addCalendar(u"Odd"_qs, {}, "nonsense", true);
        writeFile(m_folder.filePath(u"a.ics"_qs),
                  calendar(vevent("UID:file\nDTSTART:20240513T093100Z\n")));
        QVERIFY2(m_session->servers().empty(), "the session begins without servers");
    }

    void nothingIsStartedToSayThatThereAreCalendars()
    {
        for (const bool isInstalled : {true, false}) {
            X11::CalendarPlaces places{{}, isInstalled ? m_places.servicePlugin : u"/none"_qs};
            X11::DesktopCalendar port(m_data.log, m_data.clock, places);
            const auto answers = [&] {
                m_data.clock.advance(1min);
                return (port.authorization() == CalendarAuthorization::FullAccess) == isInstalled;
            };
            QTRY_VERIFY(answers());
        }
        QVERIFY(m_session->servers().empty());
        QVERIFY(!readFile(u"/proc/self/maps"_qs).contains("libecal"));
    }

    void theDesktopsCalendarsAreRead()
    {
        X11::DesktopCalendar port(m_data.log, m_data.clock, m_places);
        const auto events = read(port);
        QCOMPARE(summary(events), m_all);
        QVERIFY(readFile(u"/proc/self/maps"_qs).contains("libecal"));
        const auto call = std::ranges::find(events, u"call"_qs, &CalendarEvent::identifier);
        const CalendarEvent expected{u"call"_qs,   u"Call"_qs,
                                     std::nullopt, u"https://zoom.us/j/1"_qs,
                                     std::nullopt, from + 30min};
        QVERIFY(*call == expected);
        QCOMPARE(summary(read(port)), m_all);
        const QStringList logged = m_data.logged();
        QCOMPARE(logged.size(), 1);
        QVERIFY(logged.front().startsWith(u"calendar: “Odd” left out: "_qs));
    }

    void aMeetingFiresItsTriggerOnce()
    {
        X11::DesktopCalendar port(m_data.log, m_data.clock, m_places);
        FakeScheduler scheduler(m_data.clock);
        TriggerStore triggers(m_data.log, m_data.clock);
        const auto id = QUuid::createUuid();
        triggers.add({id, id, {CalendarVideoTrigger{60}}, true});
        QStringList fired;
        m_data.clock.set(from + 20min);
        CalendarTriggerMonitor monitor(
            triggers, port, scheduler, m_data.log, m_data.clock,
            [&](const TriggerRecord &, const QString &title) { fired << title; });
        QTRY_COMPARE(port.authorization(), CalendarAuthorization::FullAccess);
        monitor.start();
        require([&] { return !fired.isEmpty(); }, "a fired trigger");
        for (int minute = 0; minute < 3; ++minute) {
            scheduler.advance(1min);
            read(port); // answered in turn, so that look is over
        }
        QCOMPARE(fired, QStringList{u"Call"_qs});
        QVERIFY(m_data.logged().contains(u"calendar trigger fired for “Call”"_qs));
    }

    void calendarsAreReadAgainWhenTheirServerHasDied()
    {
        X11::DesktopCalendar port(m_data.log, m_data.clock, m_places);
        QCOMPARE(summary(read(port)), m_all);
        QVERIFY(m_session->signal(SIGKILL) > 0);
        QTRY_VERIFY(m_session->servers().empty());
        QCOMPARE(summary(read(port)), m_all);
    }

    void aServerThatHangsIsNotWaitedForLong()
    {
        X11::DesktopCalendar port(m_data.log, m_data.clock, m_places, 3s);
        // On a busy machine a server may need more than one such time to start.
        QTRY_COMPARE_WITH_TIMEOUT(summary(read(port)), m_all, 30'000);
        QElapsedTimer sinceTick;
        qint64 longest = 0;
        QTimer ticks;
        connect(&ticks, &QTimer::timeout, &ticks,
                [&] { longest = std::max(longest, sinceTick.restart()); });
        {
            const auto goOn = stopServers(*m_session);
            sinceTick.start();
            ticks.start(10);
            QElapsedTimer whole;
            whole.start();
            QCOMPARE(summary(read(port)), {u"file 093100"_qs});
            QVERIFY2(whole.elapsed() < 10'000, "the answer comes soon after the deadline");
            ticks.stop();
        }
        QVERIFY2(longest < 2'000, "the main loop goes on meanwhile");
        QVERIFY(m_data.logged().contains(u"calendar: not everything answered in time"_qs));
        QTRY_COMPARE_WITH_TIMEOUT(summary(read(port)), m_all, 30'000);
    }

    void aServerThatHangsDoesNotKeepTheProgramFromEnding()
    {
        auto port = std::make_unique<X11::DesktopCalendar>(m_data.log, m_data.clock, m_places);
        QCOMPARE(summary(read(*port)), m_all);
        const auto goOn = stopServers(*m_session);
        port->events(from, to, [](const auto &) { QFAIL("answered after its end"); });
        QElapsedTimer timer;
        timer.start();
        port.reset();
        QVERIFY(timer.elapsed() < 5'000);
    }

private:
    CalendarPort::Events read(X11::DesktopCalendar &port)
    {
        std::optional<CalendarPort::Events> answer;
        port.events(from, to, [&](const auto &events) { answer = events; });
        require([&] { return answer.has_value(); }, "an answer of the calendars");
        return *answer;
    }
    static QStringList summary(const CalendarPort::Events &events)
    {
        QStringList lines;
        for (const CalendarEvent &told : events) {
            const auto start =
                QDateTime::fromMSecsSinceEpoch(told.start->time_since_epoch().count(), Qt::UTC);
            lines << *told.identifier + u' ' + start.toString(u"HHmmss"_qs);
        }
        lines.sort();
        return lines;
    }

    TestDataDir m_data;
    std::unique_ptr<Session> m_session;
    QTemporaryDir m_folder;
    const X11::CalendarPlaces m_places{{m_folder.path()}, QStringLiteral(PANOREL_EVOLUTION_PLUGIN)};
    const QStringList m_all{u"call 093000"_qs, u"day 220000"_qs, u"file 093100"_qs,
                            u"floating 095000"_qs, u"series/20240513T094000Z 094000"_qs};
};

} // namespace Panorel::Desktop

QTEST_GUILESS_MAIN(Panorel::Desktop::EvolutionCalendarTest)
#include "EvolutionCalendarTest.moc"
