#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Triggers/TriggerMath.h"

#include <QDateTime>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

/// A zone, and below it: asked after; hour:minute; weekdays; fires at; the trap.
const char *const table = R"(
Europe/Berlin
2024-05-13T08:59:59.999+02:00; 9:00;; 2024-05-13T09:00+02:00; a moment before
2024-05-13T09:00+02:00; 9:00;; 2024-05-14T09:00+02:00; exactly now is over
2024-05-13T09:00+02:00; 9:00; 2; 2024-05-20T09:00+02:00; the only weekday is today
2024-05-15T12:00+02:00; 9:00; 1 7; 2024-05-18T09:00+02:00; Saturday before Sunday
2024-02-28T12:00+01:00; 11:00;; 2024-02-29T11:00+01:00; leap day
2024-03-30T12:00+01:00; 2:30;; 2024-03-31T03:00+02:00; left out
2024-03-30T12:00+01:00; 2:30; 1; 2024-03-31T03:00+02:00; weekday of the jump
2024-03-30T12:00+01:00; 2:30; 2; 2024-04-01T02:30+02:00; passing over the jump
2024-10-26T12:00+02:00; 2:30;; 2024-10-27T02:30+02:00; first of two
2024-10-27T02:30+02:00; 2:30;; 2024-10-28T02:30+01:00; not the second
2024-10-27T02:45+02:00; 2:30;; 2024-10-28T02:30+01:00; between the two
America/New_York
2024-11-02T09:00-04:00; 9:00;; 2024-11-03T09:00-05:00; a day of 25 hours
America/Sao_Paulo
2018-11-03T12:00-03:00; 0:00;; 2018-11-04T01:00-02:00; no midnight
2018-11-03T12:00-03:00; 0:30; 7; 2018-11-10T00:30-02:00; not the day before
2018-02-17T23:45-02:00; 23:30;; 2018-02-18T23:30-03:00; not the second
2018-02-17T23:10-03:00; 23:30; 7; 2018-02-24T23:30-03:00; still Saturday
2018-02-17T23:30-02:00; 0:00;; 2018-02-18T00:00-03:00; midnight an hour late
Australia/Lord_Howe
2024-04-06T12:00+11:00; 1:45;; 2024-04-07T01:45+11:00; half an hour twice
Africa/Casablanca
2024-03-09T12:00+01:00; 2:30;; 2024-03-10T02:30+01:00; Ramadan begins
2024-04-13T12:00+00:00; 2:30;; 2024-04-14T03:00+01:00; Ramadan is over
Pacific/Apia
2011-12-29T09:00-10:00; 9:00;; 2011-12-31T09:00+14:00; a day left out
2011-12-29T09:00-10:00; 9:00; 6; 2012-01-06T09:00+14:00; no such Friday
America/Nuuk
2024-03-30T12:00-02:00; 23:30; 7; 2024-04-06T23:30-01:00; moved off its weekday
America/Toronto
1919-03-30T12:00-05:00; 23:45; 2; 1919-03-31T00:30-04:00; left out over midnight
)";

Instant instant(const QString &iso)
{
    return Instant(QDateTime::fromString(iso, Qt::ISODateWithMs).toMSecsSinceEpoch() * 1ms);
}

} // namespace

class TriggerMathTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTriggerFiresNextWhereTheClockFirstComesToItsTime()
    {
        QTimeZone zone;
        int checked = 0;
        for (const QString &line : QString::fromLatin1(table).split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList row = line.split(u';');
            if (row.size() == 1) {
                zone = QTimeZone(line.toLatin1());
                QVERIFY2(zone.isValid(), qPrintable(line));
                continue;
            }
            const auto time = QTime::fromString(row[1].trimmed(), QStringLiteral("H:mm"));
            std::set<qint64> weekdays;
            for (const QString &day : row[2].split(u' ', Qt::SkipEmptyParts))
                weekdays.insert(day.toInt());
            const Instant fires = TriggerMath::nextFire(instant(row[0].trimmed()), time.hour(),
                                                        time.minute(), weekdays, zone);
            const Instant expected = instant(row[3].trimmed());
            QVERIFY2(fires == expected, qPrintable(line + u' ' + PanorelJSON::iso().string(fires)));
            ++checked;
        }
        QVERIFY(checked >= 20);
    }
};

QTEST_GUILESS_MAIN(TriggerMathTests)
#include "TriggerMathTests.moc"
