#include "PanorelX11/Calendar/RecurrenceRule.h"

#include "Fuzz/Fuzz.h"

#include <algorithm>

using namespace Panorel::X11;
using namespace std::chrono;
using Panorel::Fuzz::Input;
using Panorel::Fuzz::require;

namespace {

/// Mostly numbers that mean something, now and then any.
std::vector<int> list(Input &input)
{
    std::vector<int> result(input.number<quint8>() % 8);
    for (int &number : result)
        number = input.number<qint8>();
    if (result.size() == 7)
        result.front() = input.number<qint16>();
    return result;
}

WallTime time(Input &input)
{
    // Years 1 to 9999, as calendars are read.
    constexpr qint64 first = -62'135'596'800;
    constexpr quint64 range = 315'537'897'600;
    return WallTime(seconds(first + qint64(input.number<quint64>() % range)));
}

RecurrenceRule rule(Input &input)
{
    RecurrenceRule rule;
    rule.frequency = RecurrenceRule::Frequency(input.number<quint8>() % 7);
    rule.interval = input.number<qint16>();
    if (const auto count = input.number<quint8>())
        rule.count = count;
    if (input.number<quint8>() % 2 == 1)
        rule.until = time(input);
    rule.weekStart = weekday(input.number<quint8>() % 7);
    for (auto *each : {&rule.seconds, &rule.minutes, &rule.hours, &rule.monthDays, &rule.yearDays,
                       &rule.weeks, &rule.months, &rule.positions})
        *each = list(input);
    for (const int day : list(input))
        rule.days.push_back({day / 7, weekday(unsigned(day) % 7)});
    return rule;
}

void check(const QByteArray &bytes)
{
    Input input(bytes);
    const WallTime start = time(input);
    const WallTime from = time(input);
    const WallTime to = from + minutes(input.number<quint32>());
    const RecurrenceRule repeats = rule(input);
    RecurrenceBudget budget{5'000}; // dearer here than in the program
    const auto all = occurrences(repeats, start, from, to, budget);
    require(std::ranges::is_sorted(all), "occurrences are in order");
    require(all.empty() || (all.front() >= std::max(start, from) && all.back() <= to),
            "nothing comes before the start or outside the asked time");
    require(!repeats.count || qint64(all.size()) <= *repeats.count, "a count counts");
    require(!repeats.until || all.empty() || all.back() <= *repeats.until, "an end ends");
    require(budget.stepsLeft > -5'000, "a spent budget ends it");
    if (budget.isSpent())
        return;
    // The same again from its middle on.
    const WallTime middle = from + (to - from) / 2;
    const auto later = occurrences(repeats, start, middle, to, budget);
    const auto expected = std::ranges::lower_bound(all, middle);
    require(budget.isSpent() || std::ranges::equal(later, std::vector(expected, all.end())),
            "what is asked for does not change what there is");
}

const Panorel::Fuzz::Target target("RecurrenceRules", check);

} // namespace
