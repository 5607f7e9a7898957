#include "PanorelX11/Calendar/RecurrenceRule.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

using namespace std::chrono;
using Frequency = RecurrenceRule::Frequency;

void putInOrder(std::vector<int> &list)
{
    std::ranges::sort(list);
    list.erase(std::unique(list.begin(), list.end()), list.end());
}

/// For lists in order, as strangers' may be long.
bool allows(const std::vector<int> &list, int value)
{
    return list.empty() || std::ranges::binary_search(list, value);
}

/// The same for a list that may count from the end, where `fromEnd` is -1 for the last.
bool allows(const std::vector<int> &list, int value, int fromEnd)
{
    return allows(list, value) || std::ranges::binary_search(list, fromEnd);
}

local_days firstOfYear(year y)
{
    return local_days(y / January / 1);
}

local_days lastOfMonth(const year_month &month)
{
    return local_days(month / last);
}

/// Walks the periods of a rule: years, months, weeks, days, or single hours, minutes and seconds.
class Walk {
public:
    Walk(const RecurrenceRule &rule, WallTime start, WallTime from, WallTime to,
         RecurrenceBudget &budget)
        : m_rule(rule), m_start(start), m_startDay(floor<days>(start)), m_from(from), m_to(to),
          m_budget(budget)
    {
        m_rule.interval = std::max(m_rule.interval, 1);
        if (m_rule.until)
            m_to = std::min(m_to, *m_rule.until);
        supplyDay();
        supplyTimes();
        for (auto *list : {&m_rule.monthDays, &m_rule.yearDays, &m_rule.weeks, &m_rule.months,
                           &m_rule.positions})
            putInOrder(*list);
    }

    std::vector<WallTime> run();

private:
    bool isSubDaily() const { return m_rule.frequency <= Frequency::Hourly; }
    seconds unit() const;
    void supplyDay();
    void supplyTimes();
    sys_days::rep periodOf(WallTime time) const;
    WallTime beginOf(sys_days::rep period) const;
    std::vector<WallTime> inPeriod(sys_days::rep period);
    void appendDays(WallTime begin, std::vector<local_days> &result);
    void appendDays(local_days first, local_days final, std::vector<local_days> &result);
    void appendTimes(local_days day, std::vector<WallTime> &result);
    bool matches(local_days day) const;
    bool matchesDayOfWeek(const year_month_day &date, local_days day) const;
    bool matchesWeek(local_days day) const;
    std::vector<WallTime> chosen(const std::vector<WallTime> &all) const;

    RecurrenceRule m_rule;
    WallTime m_start;
    local_days m_startDay;
    WallTime m_from;
    WallTime m_to;
    RecurrenceBudget &m_budget;
};

seconds Walk::unit() const
{
    switch (m_rule.frequency) {
    case Frequency::Secondly:
        return seconds(1);
    case Frequency::Minutely:
        return minutes(1);
    default:
        return hours(1);
    }
}

/// What the rule leaves open about the day follows from the first occurrence.
void Walk::supplyDay()
{
    if (!m_rule.days.empty() || !m_rule.monthDays.empty() || !m_rule.yearDays.empty())
        return;
    const year_month_day first(m_startDay);
    const bool yearly = m_rule.frequency == Frequency::Yearly;
    if (m_rule.frequency == Frequency::Weekly || (yearly && !m_rule.weeks.empty())) {
        m_rule.days.push_back({0, weekday(m_startDay)});
    } else if (yearly || m_rule.frequency == Frequency::Monthly) {
        m_rule.monthDays.push_back(static_cast<int>(unsigned(first.day())));
        if (yearly && m_rule.months.empty())
            m_rule.months.push_back(static_cast<int>(unsigned(first.month())));
    }
}

/// And so it does about the time of day; lists that are given are put in order, without the numbers
/// that no clock shows.
void Walk::supplyTimes()
{
    const hh_mm_ss time(m_start - m_startDay);
    const auto supply = [this](std::vector<int> &list, auto value, int end, bool open) {
        if (list.empty() && open)
            list.push_back(static_cast<int>(value.count()));
        if (list.empty())
            return;
        std::erase_if(list, [end](int number) { return number < 0 || number >= end; });
        putInOrder(list);
        if (list.empty()) // it was to restrict, not to let everything through
            m_to = m_from - std::chrono::seconds(1);
    };
    supply(m_rule.hours, time.hours(), 24, m_rule.frequency > Frequency::Hourly);
    supply(m_rule.minutes, time.minutes(), 60, m_rule.frequency > Frequency::Minutely);
    supply(m_rule.seconds, time.seconds(), 60, m_rule.frequency > Frequency::Secondly);
}

/// Counted in periods of the rule's frequency, of which the first occurrence's is number 0. For
/// times that are not before it.
sys_days::rep Walk::periodOf(WallTime time) const
{
    const local_days day = floor<days>(time);
    const year_month_day date(day);
    const year_month_day first(m_startDay);
    switch (m_rule.frequency) {
    case Frequency::Yearly:
        return (date.year() - first.year()).count();
    case Frequency::Monthly:
        return (date.year() / date.month() - first.year() / first.month()).count();
    case Frequency::Weekly:
        return (day - floor<days>(beginOf(0))).count() / 7;
    case Frequency::Daily:
        return (day - m_startDay).count();
    default:
        return (time - beginOf(0)) / unit();
    }
}

WallTime Walk::beginOf(sys_days::rep period) const
{
    const year_month_day first(m_startDay);
    switch (m_rule.frequency) {
    case Frequency::Yearly:
        return firstOfYear(first.year() + years(period));
    case Frequency::Monthly:
        return local_days((first.year() / first.month() + months(period)) / 1);
    case Frequency::Weekly:
        return m_startDay - (weekday(m_startDay) - m_rule.weekStart) + weeks(period);
    case Frequency::Daily:
        return m_startDay + days(period);
    default:
        return m_startDay + ((m_start - m_startDay) / unit() + period) * unit();
    }
}

std::vector<WallTime> Walk::run()
{
    std::vector<WallTime> result;
    if (m_from > m_to || m_start > m_to)
        return result;
    // A count counts from the first; everything else can begin where the asker looks.
    sys_days::rep period = 0;
    if (!m_rule.count && m_from > m_start)
        period = periodOf(m_from) / m_rule.interval * m_rule.interval;
    int left = m_rule.count.value_or(-1);
    for (; left != 0 && !m_budget.isSpent() && beginOf(period) <= m_to; period += m_rule.interval) {
        for (const WallTime time : chosen(inPeriod(period))) {
            if (time < m_start || left == 0)
                continue;
            if (left > 0)
                --left;
            if (time >= m_from && time <= m_to)
                result.push_back(time);
        }
    }
    return result;
}

std::vector<WallTime> Walk::inPeriod(sys_days::rep period)
{
    --m_budget.stepsLeft;
    const WallTime begin = beginOf(period);
    std::vector<WallTime> times;
    if (!isSubDaily()) {
        std::vector<local_days> matching;
        appendDays(begin, matching);
        for (const local_days day : matching)
            appendTimes(day, times);
        return times;
    }
    const local_days day = floor<days>(begin);
    const hh_mm_ss time(begin - day);
    const bool hourly = m_rule.frequency == Frequency::Hourly;
    const bool secondly = m_rule.frequency == Frequency::Secondly;
    if (!allows(m_rule.hours, static_cast<int>(time.hours().count()))
        || (!hourly && !allows(m_rule.minutes, static_cast<int>(time.minutes().count())))
        || (secondly && !allows(m_rule.seconds, static_cast<int>(time.seconds().count())))
        || !matches(day))
        return times;
    const std::vector<int> zero{0};
    for (const int minute : hourly ? m_rule.minutes : zero) {
        for (const int second : secondly ? zero : m_rule.seconds) {
            --m_budget.stepsLeft;
            times.push_back(begin + minutes(minute) + seconds(second));
        }
    }
    return times;
}

void Walk::appendDays(WallTime begin, std::vector<local_days> &result)
{
    const local_days first = floor<days>(begin);
    const year_month_day date(first);
    switch (m_rule.frequency) {
    case Frequency::Yearly:
        for (unsigned month = 1; month <= 12; ++month) {
            if (allows(m_rule.months, static_cast<int>(month))) {
                const year_month in = date.year() / std::chrono::month(month);
                appendDays(local_days(in / 1), lastOfMonth(in), result);
            }
        }
        break;
    case Frequency::Monthly:
        appendDays(first, lastOfMonth(date.year() / date.month()), result);
        break;
    default:
        appendDays(first, first + days(m_rule.frequency == Frequency::Weekly ? 6 : 0), result);
    }
}

void Walk::appendDays(local_days first, local_days final, std::vector<local_days> &result)
{
    for (local_days day = first; day <= final; day += days(1)) {
        --m_budget.stepsLeft;
        if (matches(day))
            result.push_back(day);
    }
}

void Walk::appendTimes(local_days day, std::vector<WallTime> &result)
{
    for (const int hour : m_rule.hours) {
        for (const int minute : m_rule.minutes) {
            for (const int second : m_rule.seconds) {
                if (--m_budget.stepsLeft < 0)
                    return;
                result.push_back(day + hours(hour) + minutes(minute) + seconds(second));
            }
        }
    }
}

bool Walk::matches(local_days day) const
{
    const year_month_day date(day);
    const auto number = [](auto value) { return static_cast<int>(unsigned(value)); };
    const int monthLength = number(year_month_day(lastOfMonth(date.year() / date.month())).day());
    const int yearLength = date.year().is_leap() ? 366 : 365;
    const int dayOfYear = static_cast<int>((day - firstOfYear(date.year())).count()) + 1;
    return allows(m_rule.months, number(date.month()))
           && allows(m_rule.monthDays, number(date.day()), number(date.day()) - monthLength - 1)
           && allows(m_rule.yearDays, dayOfYear, dayOfYear - yearLength - 1)
           && matchesDayOfWeek(date, day) && matchesWeek(day);
}

bool Walk::matchesDayOfWeek(const year_month_day &date, local_days day) const
{
    const bool yearly = m_rule.frequency == Frequency::Yearly;
    const bool positionsCount = yearly || m_rule.frequency == Frequency::Monthly;
    const bool inYear = yearly && m_rule.months.empty();
    const local_days first =
        inYear ? firstOfYear(date.year()) : local_days(date.year() / date.month() / 1);
    const local_days final = inYear ? firstOfYear(date.year() + years(1)) - days(1)
                                    : lastOfMonth(date.year() / date.month());
    const int fromStart = static_cast<int>((day - first).count()) / 7 + 1;
    const int fromEnd = -(static_cast<int>((final - day).count()) / 7 + 1);
    const weekday here(day);
    return m_rule.days.empty() || std::ranges::any_of(m_rule.days, [&](const auto &wanted) {
               return wanted.weekday == here
                      && (wanted.position == 0 || !positionsCount || wanted.position == fromStart
                          || wanted.position == fromEnd);
           });
}

/// Week 1 is the first with at least four days in the year.
bool Walk::matchesWeek(local_days day) const
{
    if (m_rule.weeks.empty())
        return true;
    const auto middle = [&](local_days of) {
        return of - (weekday(of) - m_rule.weekStart) + days(3);
    };
    const local_days here = middle(day);
    const year owner = year_month_day(here).year();
    const auto numberOf = [&](local_days thatMiddle) {
        return static_cast<int>((thatMiddle - firstOfYear(owner)).count()) / 7 + 1;
    };
    // 28 December is in the last week of its year whatever day weeks begin with.
    const int total = numberOf(middle(local_days(owner / December / 28)));
    const int number = numberOf(here);
    return allows(m_rule.weeks, number, number - total - 1);
}

std::vector<WallTime> Walk::chosen(const std::vector<WallTime> &all) const
{
    if (m_rule.positions.empty())
        return all;
    std::vector<WallTime> result;
    const int size = static_cast<int>(all.size());
    for (int i = 0; i < size; ++i) {
        if (allows(m_rule.positions, i + 1, i - size))
            result.push_back(all[static_cast<std::size_t>(i)]);
    }
    return result;
}

} // namespace

std::vector<WallTime> occurrences(const RecurrenceRule &rule, WallTime start, WallTime from,
                                  WallTime to, RecurrenceBudget &budget)
{
    return Walk(rule, start, from, to, budget).run();
}

} // namespace Panorel::X11
