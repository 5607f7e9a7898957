#include "Desktop/Support/ChildProcess.h"
#include "PanorelCore/Triggers/TriggerStore.h"
#include "PanorelEngine/Triggers/CalendarTriggerMonitor.h"
#include "PanorelX11/Calendar/DesktopCalendar.h"
#include "PanorelX11/Session/GObjectOwned.h"
#include "Support/FakeScheduler.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QTest>

#include <csignal>

namespace Panorel::Desktop {

namespace {

using namespace std::chrono_literals;

const Instant from = Instant(std::chrono::seconds(1715590800)); // 2024-05-13T09:00:00Z
const Instant to = from + 1h;

void write(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

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
        const QString home = m_home.path();
        for (const auto &[name, folder] : {std::pair("HOME", "/home"),
                                           {"XDG_RUNTIME_DIR", "/run"},
                                           {"XDG_CONFIG_HOME", "/config"},
                                           {"XDG_DATA_HOME", "/data"},
                                           {"XDG_CACHE_HOME", "/cache"}}) {
            QDir().mkdir(home + QLatin1String(folder));
            qputenv(name, (home + QLatin1String(folder)).toUtf8());
        }
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("GIO_USE_VFS", "local");
        qputenv("TZ", "Europe/Berlin");
        qunsetenv("DISPLAY");
        m_bus.silence();
        m_bus.start();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().toUtf8());
    }
    ~Session() { signal(SIGKILL); }

    /// As the servers find it when they start.
    void addCalendar(const QString &name, const QByteArray &events, const QByteArray &backend,
                     bool isEnabled)
    {
        write(qEnvironmentVariable("XDG_CONFIG_HOME")
                  + u"/evolution/sources/%1.source"_qs.arg(name),
              "[Data Source]\nDisplayName=" + name.toUtf8()
                  + "\nEnabled=" + (isEnabled ? "true" : "false")
                  + "\nParent=local-stub\n\n[Calendar]\nBackendName=" + backend + "\n");
        write(qEnvironmentVariable("XDG_DATA_HOME")
                  + u"/evolution/calendar/%1/calendar.ics"_qs.arg(name),
              calendar(events));
    }

    /// The processes that serve calendars, as the bus knows them.
    std::set<guint32> servers() const
    {
        std::set<guint32> result;
        if (!m_connection)
            m_connection.reset(g_dbus_connection_new_for_address_sync(
                qgetenv("DBUS_SESSION_BUS_ADDRESS").constData(),
                GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT
                                     | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
                nullptr, nullptr, nullptr));
        GVariant *names = ask("ListNames", nullptr);
        GVariantIter *list = nullptr;
        g_variant_get(names, "(as)", &list);
        const char *name = nullptr;
        while (g_variant_iter_next(list, "&s", &name)) {
            if (!g_str_has_prefix(name, "org.gnome.evolution.dataserver.")
                || !g_strrstr(name, "Calendar"))
                continue;
            if (GVariant *answer = ask("GetConnectionUnixProcessID", g_variant_new("(s)", name))) {
                guint32 pid = 0;
                g_variant_get(answer, "(u)", &pid);
                g_variant_unref(answer);
                result.insert(pid);
            }
        }
        g_variant_iter_free(list);
        g_variant_unref(names);
        return result;
    }
    int signal(int number) const
    {
        const auto pids = servers();
        for (const guint32 pid : pids)
            kill(static_cast<pid_t>(pid), number);
        return static_cast<int>(pids.size());
    }

private:
    GVariant *ask(const char *method, GVariant *arguments) const
    {
        return g_dbus_connection_call_sync(m_connection.get(), "org.freedesktop.DBus",
                                           "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
                                           arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
                                           nullptr);
    }

    QTemporaryDir m_home;
    ChildProcess m_bus{u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs}};
    mutable X11::GOwned<GDBusConnection> m_connection;
};

/// Stopped servers, which go on when the test is done with them.
class Stopped {
public:
    explicit Stopped(Session &session) : m_session(session) { count = session.signal(SIGSTOP); }
    ~Stopped() { m_session.signal(SIGCONT); }

    int count = 0;

private:
    Session &m_session;
};

QString maps()
{
    QFile file(u"/proc/self/maps"_qs);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
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
        write(m_folder.filePath(u"a.ics"_qs),
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
        QVERIFY(!maps().contains(u"libecal"));
    }

    void theDesktopsCalendarsAreRead()
    {
        X11::DesktopCalendar port(m_data.log, m_data.clock, m_places);
        QElapsedTimer timer;
        timer.start();
        const auto events = read(port);
        qInfo("first %lld ms", timer.restart());
        QCOMPARE(summary(events), m_all);
        QVERIFY(maps().contains(u"libecal"));
        const auto call = std::ranges::find(events, u"call"_qs, &CalendarEvent::identifier);
        const CalendarEvent expected{u"call"_qs,   u"Call"_qs,
                                     std::nullopt, u"https://zoom.us/j/1"_qs,
                                     std::nullopt, from + 30min};
        QVERIFY(*call == expected);
        timer.restart();
        QCOMPARE(summary(read(port)), m_all);
        qInfo("again %lld ms", timer.elapsed());
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
            const Stopped stopped(*m_session);
            QVERIFY(stopped.count > 0);
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
        const Stopped stopped(*m_session);
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
