#include "Core/Sizes.h"
#include "PanorelX11/Calendar/EventExpansion.h"

#include <QTimeZone>

namespace Panorel::X11 {

namespace {

const Instant asked(std::chrono::seconds(1715592000)); // 2024-05-13T09:20:00Z

/// Single meetings of one year, and every tenth a weekly one with an exception.
QByteArray calendar(int events)
{
    QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
    for (int i = 0; i < events; ++i) {
        const QByteArray number = QByteArray::number(i);
        const QByteArray day = QByteArray::number(10 + i % 18);
        const QByteArray month = QByteArray::number(i % 12 + 1).rightJustified(2, '0');
        text += "BEGIN:VEVENT\r\nUID:" + number + "@example.org\r\nDTSTART:2024" + month + day
                + "T093000Z\r\nDURATION:PT30M\r\nSUMMARY:Meeting " + number
                + "\r\nDESCRIPTION:https://example.org/minutes/" + number + "\r\n";
        if (i % 10 == 0)
            text += "RRULE:FREQ=WEEKLY\r\nEXDATE:2024" + month + day + "T093000Z\r\n";
        text += "END:VEVENT\r\n";
    }
    return text + "END:VCALENDAR\r\n";
}

void parse(benchmark::State &state)
{
    const QByteArray text = calendar(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CalendarFile::parse(text));
}

void expand(benchmark::State &state)
{
    const CalendarFile file = CalendarFile::parse(calendar(int(state.range(0))));
    for (auto _ : state) {
        EventExpansion expansion(asked, asked + std::chrono::hours(1), QTimeZone::utc());
        expansion.add(file.events);
        benchmark::DoNotOptimize(expansion.occurrences());
    }
}

/// One meeting on every day for years, with as many of them removed one by one.
void expandRemoved(benchmark::State &state)
{
    QByteArray text = "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20240513T093000Z\r\n"
                      "RRULE:FREQ=DAILY\r\n";
    const QDateTime first(QDate(2024, 5, 14), QTime(9, 30), Qt::UTC);
    for (int i = 0; i < state.range(0); ++i)
        text += "EXDATE:" + first.addDays(i).toString(u"yyyyMMdd'T'HHmmss'Z'").toLatin1() + "\r\n";
    const CalendarFile file = CalendarFile::parse(text + "END:VEVENT\r\nEND:VCALENDAR\r\n");
    for (auto _ : state) {
        EventExpansion expansion(asked, asked + std::chrono::days(3'000), QTimeZone::utc());
        expansion.add(file.events);
        benchmark::DoNotOptimize(expansion.occurrences());
    }
}

BENCHMARK(parse)->Name("events/calendar parsed")->Apply(decades);
BENCHMARK(expand)->Name("events/calendar expanded")->Apply(decades);
BENCHMARK(expandRemoved)
    ->Name("events/removed from a daily meeting")
    ->RangeMultiplier(10)
    ->Range(10, 1'000)
    ->UseRealTime();

} // namespace

} // namespace Panorel::X11
