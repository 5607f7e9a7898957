#include "Desktop/Support/ChildProcess.h"
#include "PanorelX11/Calendar/DesktopCalendar.h"
#include "Support/TestDataDir.h"
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

QByteArray calendar(const std::vector<QByteArray> &events)
{
    QByteArray text = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:x\n";
    for (const QByteArray &lines : events)
        text += "BEGIN:VEVENT\nDTSTAMP:20240101T000000Z\n" + lines + "\nEND:VEVENT\n";
    text += "END:VCALENDAR\n";
    return text.replace("\n", "\r\n");
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
    void addCalendar(const QString &name, const QByteArray &backend, const QByteArray &text)
    {
        writeFile(m_home.path(u"config/evolution/sources/%1.source"_qs.arg(name)),
                  "[Data Source]\nDisplayName=" + name.toUtf8()
                      + "\nParent=local-stub\n\n[Calendar]\nBackendName=" + backend + "\n");
        writeFile(m_home.path(u"data/evolution/calendar/%1/calendar.ics"_qs.arg(name)), text);
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

} // namespace

class EvolutionCalendarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session = std::make_unique<Session>();
        m_session->addCalendar(
            u"Work"_qs, "local",
            calendar({"UID:call\nDTSTART:20240513T093000Z",
                      "UID:series\nDTSTART;TZID=Europe/Berlin:20240101T114000\nRRULE:FREQ=DAILY",
                      "UID:moved\nDTSTART:20240501T094600Z\nRRULE:FREQ=DAILY",
                      "UID:moved\nRECURRENCE-ID:20240513T094600Z\nDTSTART:20240601T094600Z",
                      "UID:floating\nDTSTART:20240513T115000"}));
        m_session->addCalendar(u"Odd"_qs, "nonsense", {});
        writeFile(m_folder.filePath(u"a.ics"_qs), calendar({"UID:file\nDTSTART:20240513T093100Z"}));
    }

    void calendarsAreReadAndAgainWhenTheirServerHasDied()
    {
        X11::DesktopCalendar port(m_data.log, m_data.clock, m_places);
        QTRY_COMPARE(port.authorization(), CalendarAuthorization::FullAccess);
        QVERIFY(m_session->servers().empty()); // nothing was started to say so
        QVERIFY(!readFile(u"/proc/self/maps"_qs).contains("libecal"));
        QCOMPARE(read(port), m_all);
        QVERIFY(readFile(u"/proc/self/maps"_qs).contains("libecal"));
        QVERIFY(m_session->signal(SIGKILL) > 0);
        QTRY_VERIFY(m_session->servers().empty());
        QCOMPARE(read(port), m_all);
        const QStringList logged = m_data.logged();
        QCOMPARE(logged.size(), 1);
        QVERIFY(logged.front().startsWith(u"calendar: “Odd” left out: "_qs));
    }

    void aServerThatHangsIsNotWaitedForLong()
    {
        auto port = std::make_unique<X11::DesktopCalendar>(m_data.log, m_data.clock, m_places, 3s);
        // On a busy machine a server may need more than one such time to start.
        QTRY_COMPARE_WITH_TIMEOUT(read(*port), m_all, 30'000);
        if (m_session->signal(SIGSTOP) == 0)
            qFatal("no servers to stop");
        const auto goOn = qScopeGuard([this] { m_session->signal(SIGCONT); });
        int ticks = 0; // of the main loop, which goes on meanwhile
        QTimer timer;
        connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
        timer.start(10);
        QElapsedTimer whole;
        whole.start();
        QCOMPARE(read(*port), {u"file 093100"_qs});
        QVERIFY2(whole.elapsed() < 10'000 && ticks > 5, qPrintable(QString::number(ticks)));
        QVERIFY(m_data.logged().contains(u"calendar: not everything answered in time"_qs));

        // Nor does it keep the program from ending.
        port->events(from, to, [](const auto &) { QFAIL("answered after its end"); });
        whole.start();
        port.reset();
        QVERIFY(whole.elapsed() < 5'000);
    }

private:
    /// Every event with its time of day.
    QStringList read(X11::DesktopCalendar &port)
    {
        std::optional<CalendarPort::Events> answer;
        port.events(from, to, [&](const auto &events) { answer = events; });
        require([&] { return answer.has_value(); }, "an answer of the calendars");
        QStringList lines;
        for (const CalendarEvent &event : *answer) {
            const auto start = event.start->time_since_epoch().count();
            lines << *event.identifier + u' '
                         + QDateTime::fromMSecsSinceEpoch(start, Qt::UTC).toString(u"HHmmss"_qs);
        }
        lines.sort();
        return lines;
    }

    TestDataDir m_data;
    std::unique_ptr<Session> m_session;
    QTemporaryDir m_folder;
    const X11::CalendarPlaces m_places{{m_folder.path()}, QStringLiteral(PANOREL_EVOLUTION_PLUGIN)};
    const QStringList m_all{u"call 093000"_qs, u"file 093100"_qs, u"floating 095000"_qs,
                            u"series/20240513T094000Z 094000"_qs};
};

} // namespace Panorel::Desktop

QTEST_GUILESS_MAIN(Panorel::Desktop::EvolutionCalendarTest)
#include "EvolutionCalendarTest.moc"
