#pragma once

#include <chrono>
#include <optional>
#include <vector>

namespace Panorel::X11 {

/// A time on a wall clock, of whatever zone.
using WallTime = std::chrono::local_seconds;

/// How an event repeats, as iCalendar says it (RRULE). Empty lists restrict nothing; numbers that
/// no date has match nothing. Negative days and weeks count from the end.
///
/// Rules come from strangers: working one out takes bounded time whatever it says. That is why
/// this is the project's own; libical's iterator crashes on some rules and never ends on others.
struct RecurrenceRule {
    enum class Frequency { Secondly, Minutely, Hourly, Daily, Weekly, Monthly, Yearly };

    struct Day {
        int position = 0; ///< -1 is the last of its kind in the month or year; 0 is every one
        std::chrono::weekday weekday;
    };

    Frequency frequency = Frequency::Daily;
    int interval = 1;
    std::optional<int> count;
    std::optional<WallTime> until; ///< itself included
    std::chrono::weekday weekStart = std::chrono::Monday;
    std::vector<int> seconds;
    std::vector<int> minutes;
    std::vector<int> hours;
    std::vector<Day> days;
    std::vector<int> monthDays;
    std::vector<int> yearDays;
    std::vector<int> weeks;
    std::vector<int> months;
    std::vector<int> positions; ///< of those that one period brings, which count
};

/// What working out may cost, counted in steps of well under a microsecond.
struct RecurrenceBudget {
    int stepsLeft = 500'000;

    bool isSpent() const { return stepsLeft < 0; }
};

/// The times in [from, to] at which something that begins at `start` repeats, in order, without
/// `start` itself unless the rule brings it. Incomplete where the budget was spent.
std::vector<WallTime> occurrences(const RecurrenceRule &rule, WallTime start, WallTime from,
                                  WallTime to, RecurrenceBudget &budget);

} // namespace Panorel::X11
