#include "PanorelX11/Calendar/DesktopCalendar.h"
#include "Support/TestDataDir.h"
#include "Support/TestHome.h"

#include <QDateTime>
#include <QFile>
#include <QTest>

#include <ctime>
#include <sys/stat.h>
#include <utime.h>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

Instant instant(const char *iso)
{
    const auto time = QDateTime::fromString(QLatin1String(iso), Qt::ISODate);
    return Instant(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

/// The hour that is asked for: from 11 to 12 in the user's zone.
const Instant from = instant("2024-05-13T09:00:00Z");
const Instant to = from + 1h;

QString described(const CalendarEvent &event)
{
    const auto start = event.start->time_since_epoch().count();
    return QStringLiteral("%1 %2").arg(
        *event.identifier,
        QDateTime::fromMSecsSinceEpoch(start, Qt::UTC).toString(QStringLiteral("MMdd'T'HHmmss")));
}

QByteArray calendar(const QByteArray &body)
{
    QByteArray text = "BEGIN:VCALENDAR\nVERSION:2.0\n" + body + "END:VCALENDAR\n";
    return text.replace("\n", "\r\n");
}

/// One event; its lines are separated by blanks, so that a row of a table shows them.
QByteArray vevent(const QByteArray &lines)
{
    return "BEGIN:VEVENT\nUID:a\n" + QByteArray(lines).replace(' ', '\n') + "\nEND:VEVENT\n";
}

const QByteArray officeZone = "BEGIN:VTIMEZONE\nTZID:Office\n"
                              "BEGIN:DAYLIGHT\nDTSTART:20000326T020000\n"
                              "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\n"
                              "TZOFFSETFROM:+0100\nTZOFFSETTO:+0200\nEND:DAYLIGHT\n"
                              "BEGIN:STANDARD\nDTSTART:20001029T030000\n"
                              "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\n"
                              "TZOFFSETFROM:+0200\nTZOFFSETTO:+0100\nEND:STANDARD\n"
                              "END:VTIMEZONE\n";

/// Some folders of calendars and what is read from them.
class Folders {
public:
    QString path(const QString &name) const { return root.filePath(u"calendars/"_qs + name); }
    void write(const QString &name, const QByteArray &text) const { writeFile(path(name), text); }
    CalendarPort::Events read(Instant begin = from, Instant end = to)
    {
        std::optional<CalendarPort::Events> answer;
        port.events(begin, end, [&](const CalendarPort::Events &events) { answer = events; });
        if (!QTest::qWaitFor([&] { return answer.has_value(); }, 60'000))
            qFatal("the calendar did not answer");
        return *answer;
    }
    QStringList summary()
    {
        QStringList lines;
        for (const CalendarEvent &event : read())
            lines << described(event);
        lines.sort();
        return lines;
    }

    TestDataDir data;
    QTemporaryDir root;
    DesktopCalendar port{data.log, data.clock, CalendarPlaces{{root.filePath(u"calendars"_qs)}, {}},
                         1min};
};

} // namespace

class CalendarTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "Europe/Berlin"); }

    void theEventsOfTheHourAreFound();
    void repeatingEventsOccurWhenTheirRuleSays();

    void aMeetingIsTold()
    {
        Folders folders;
        folders.write(u"work/team/one.ics"_qs,
                      calendar("BEGIN:VEVENT\nUID:b@c\nDTSTART:20240513T093000Z\n"
                               "SUMMARY:Stand-up\\, daily\nLOCATION:Room \xFF 5\n"
                               "DESCRIPTION:Join\\nhttps://zoom.us/\n j/1\n"
                               "X-GOOGLE-CONFERENCE:https://e.org/a,b;c?d=1\nEND:VEVENT\n"));
        const auto events = folders.read();
        QCOMPARE(events.size(), 1U);
        const CalendarEvent expected{u"b@c"_qs,
                                     u"Stand-up, daily"_qs,
                                     u"Room \uFFFD 5"_qs,
                                     u"Join\nhttps://zoom.us/j/1"_qs,
                                     u"https://e.org/a,b;c?d=1"_qs,
                                     instant("2024-05-13T09:30:00Z")};
        QVERIFY(events.front() == expected);
        QCOMPARE(folders.data.logged(), {});
    }

    void aChangedFileIsReadAgain()
    {
        Folders folders;
        const QString name = u"a.ics"_qs;
        folders.write(name, calendar(vevent("DTSTART:20240513T093000Z SUMMARY:Old")));
        QCOMPARE(folders.read().front().title, u"Old"_qs);
        // Of the same size and time, as a program that keeps times would leave it.
        struct stat before {};
        stat(qPrintable(folders.path(name)), &before);
        folders.write(name, calendar(vevent("DTSTART:20240513T093000Z SUMMARY:New")));
        const utimbuf times{before.st_atime, before.st_mtime};
        utime(qPrintable(folders.path(name)), &times);
        QCOMPARE(folders.read().front().title, u"New"_qs);
        QVERIFY(QFile::remove(folders.path(name)));
        QVERIFY(folders.read().empty());
    }

    void aFileThatCannotBeReadIsReportedOnce();

    void onlyFilesAreOpenedAndNoFolderTwice()
    {
        Folders folders;
        const QByteArray text = calendar(vevent("DTSTART:20240513T093000Z"));
        folders.write(u"work/a.ics"_qs, text);
        folders.write(u"1/2/3/4/deep.ics"_qs, calendar(vevent("DTSTART:20240513T094000Z")));
        QCOMPARE(mkfifo(qPrintable(folders.path(u"pipe.ics"_qs)), 0600), 0);
        QVERIFY(QFile::link(u"/dev/zero"_qs, folders.path(u"zero.ics"_qs)));
        QVERIFY(QFile::link(folders.path(u"pipe.ics"_qs), folders.path(u"linked.ics"_qs)));
        QVERIFY(QFile::link(folders.path({}), folders.path(u"work/loop"_qs)));
        QDir().mkpath(folders.path(u"folder.ics"_qs));
        QCOMPARE(folders.summary(), {u"a 0513T093000"_qs});
        QCOMPARE(folders.data.logged(), {});
    }

    void anEventThatRepeatsEverySecondIsFollowedSoFar()
    {
        Folders folders;
        folders.write(u"a.ics"_qs,
                      calendar(vevent("SUMMARY:Tick DTSTART:19700101T000000 RRULE:FREQ=SECONDLY")
                               + vevent("DTSTART:20240513T093000Z").replace("UID:a", "UID:b")));
        const std::clock_t begin = std::clock(); // what others have the machine do does not count
        const auto events = folders.read();
        QCOMPARE(events.size(), 1001U);
        folders.read();
        QVERIFY2(std::clock() - begin < 20 * CLOCKS_PER_SEC, "bounded work");
        QCOMPARE(folders.data.logged(), {u"calendar: “Tick” repeats too often to be followed"_qs});
    }
};

void CalendarTests::theEventsOfTheHourAreFound()
{
    const QByteArray everyDay = "DTSTART:20240501T093000Z RRULE:FREQ=DAILY";
    const struct {
        const char *name;
        QByteArray body;
        const char *expected = "a 0513T093000"; ///< identifiers and starts
    } rows[] = {
        {"UTC", vevent("DTSTART:20240513T090000Z"), "a 0513T090000"},
        {"the user's clock", vevent("DTSTART:20240513T113000")},
        {"a known zone", vevent("DTSTART;TZID=America/New_York:20240513T053000")},
        {"a zone by its name in Windows",
         vevent("DTSTART;TZID=Tokyo_Standard_Time:20240513T183000").replace('_', ' ')},
        {"a zone of the calendar's own, from winter on",
         officeZone + vevent("DTSTART;TZID=Office:20240101T113000 RRULE:FREQ=WEEKLY"),
         "a/20240513T093000Z 0513T093000"},
        {"a day", vevent("DTSTART;VALUE=DATE:20240513"), "a 0512T220000"},
        {"going on by its length", vevent("DTSTART:20240511T083000Z DURATION:P3D"),
         "a 0511T083000"},
        {"just ended", vevent("DTSTART:20240513T083000Z DTEND:20240513T090000Z"), ""},
        {"cancelled", vevent("DTSTART:20240513T093000Z STATUS:CANCELLED"), ""},
        {"moved later on",
         vevent("DTSTART:20240513T093000Z") + vevent("DTSTART:20240513T094000Z SEQUENCE:1"),
         "a 0513T094000"},
        {"one day removed, in another zone",
         vevent(everyDay + " EXDATE;TZID=Asia/Tokyo:20240513T183000"), ""},
        {"one time added",
         vevent("DTSTART:20240501T093000Z RDATE:20240513T094500Z,20240520T093000Z"),
         "a/20240513T094500Z 0513T094500"},
        {"an occurrence moved away",
         vevent("RECURRENCE-ID:20240513T093000Z DTSTART:20240514T093000Z") + vevent(everyDay), ""},
        {"an occurrence moved here",
         vevent("DTSTART:20240501T150000Z RRULE:FREQ=WEEKLY")
             + vevent("RECURRENCE-ID:20240515T150000Z DTSTART:20240513T094000Z"),
         "a/20240515T150000Z 0513T094000"},
        {"an occurrence cancelled",
         vevent(everyDay)
             + vevent("RECURRENCE-ID:20240513T093000Z DTSTART:20240513T093000Z STATUS:CANCELLED"),
         ""},
        {"a broken event does not hide the next",
         "BEGIN:VEVENT\nUID:broken\nBEGIN:VALARM\n" + vevent("DTSTART:20240513T093000Z")},
        {"a line of megabytes is left out",
         vevent("ATTACH:" + QByteArray(30 << 20, 'x') + " DTSTART:20240513T093000Z")},
    };
    for (const auto &row : rows) {
        Folders folders;
        folders.write(u"a.ics"_qs, calendar(row.body));
        const QString name = QLatin1String(row.name) + u": "_qs;
        QCOMPARE(name + folders.summary().join(u", "_qs), name + QLatin1String(row.expected));
    }
}

/// Rules and what they say between 1 May 2024 and 1 June 2025, days and times in UTC.
void CalendarTests::repeatingEventsOccurWhenTheirRuleSays()
{
    const std::tuple<const char *, const char *, const char *> rows[] = {
        {"20240513T093000Z", "FREQ=DAILY;UNTIL=20240515T092959Z", "0513 0514"},
        {"20240514T093000Z", "FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=MO",
         "0514 0519 0528 0602"},
        {"20240514T093000Z", "FREQ=WEEKLY;INTERVAL=2;COUNT=4;BYDAY=TU,SU;WKST=SU",
         "0514 0526 0528 0609"},
        {"20240531T093000Z", "FREQ=MONTHLY;COUNT=3", "0531 0731 0831"},
        {"20240531T093000Z", "FREQ=MONTHLY;COUNT=3;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1",
         "0531 0628 0731"},
        {"20200229T093000Z", "FREQ=YEARLY", ""},
        {"20240513T093000Z", "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30", "0513"},
    };
    for (const auto &[start, rule, expected] : rows) {
        Folders folders;
        const QByteArray lines = QByteArray("DTSTART:") + start + " RRULE:" + rule;
        folders.write(u"a.ics"_qs, calendar(vevent(lines)));
        auto events =
            folders.read(instant("2024-05-01T00:00:00Z"), instant("2025-06-01T00:00:00Z"));
        std::ranges::sort(events, {}, &CalendarEvent::start);
        QStringList days;
        for (const CalendarEvent &event : events)
            days << described(event).section(u' ', 1).left(4);
        const QString name = QLatin1String(rule) + u": "_qs;
        QCOMPARE(name + days.join(u' '), name + QLatin1String(expected));
    }
}

void CalendarTests::aFileThatCannotBeReadIsReportedOnce()
{
    const QByteArray deep = QByteArray("BEGIN:VEVENT\nBEGIN:X\n").repeated(1 << 19);
    const QString broken = u"is not a whole calendar"_qs;
    const std::pair<QByteArray, QString> rows[] = {
        {QByteArray(), broken},
        {calendar(vevent("DTSTART:20240513T093000Z")).chopped(30), broken},
        {"BEGIN:VCALENDAR\n" + deep, broken},
        {calendar(vevent("DTSTART:20249999T999999Z")), u"holds 1 events that can't be read"_qs},
        {QByteArray((32 << 20) + 1, ' '), u"is too large for a calendar"_qs},
    };
    for (const auto &[text, problem] : rows) {
        Folders folders;
        const QString name = u"broken.ics"_qs;
        folders.write(name, text);
        folders.write(u"fine.ics"_qs, calendar(vevent("DTSTART:20240513T093000Z")));
        for (int i = 0; i < 3; ++i) {
            folders.data.clock.advance(2h);
            QCOMPARE(folders.summary(), {u"a 0513T093000"_qs});
        }
        const QString line = u"calendar: %1 %2"_qs.arg(folders.path(name), problem);
        QCOMPARE(folders.data.logged(), {line});
    }
}

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::CalendarTests)
#include "CalendarTests.moc"
