#include "PanorelX11/Calendar/EventZone.h"

#include "PanorelCore/Triggers/LocalTime.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

using namespace std::chrono;

/// When the observance last began before or at the time.
std::optional<WallTime> lastStart(const ZoneObservance &observance, WallTime time)
{
    std::optional<WallTime> result;
    const auto consider = [&](WallTime candidate) {
        if (candidate <= time && (!result || candidate > *result))
            result = candidate;
    };
    consider(observance.start);
    std::ranges::for_each(observance.others, consider);
    for (const RecurrenceRule &rule : observance.rules) {
        const WallTime to = std::min(time, rule.until.value_or(time));
        RecurrenceBudget budget{5'000};
        std::ranges::for_each(occurrences(rule, observance.start, to - days(400), to, budget),
                              consider);
    }
    return result;
}

seconds offsetAt(const std::vector<ZoneObservance> &observances, WallTime time)
{
    const ZoneObservance *current = nullptr;
    std::optional<WallTime> since;
    for (const ZoneObservance &observance : observances) {
        const auto start = lastStart(observance, time);
        if (start && (!since || *start > *since)) {
            since = start;
            current = &observance;
        }
    }
    if (!current)
        return std::ranges::min(observances, {}, &ZoneObservance::start).offsetBefore;
    // A time that the jump leaves out is meant by the clock as it was before.
    const bool leftOut = time - *since < current->offsetAfter - current->offsetBefore;
    return leftOut ? current->offsetBefore : current->offsetAfter;
}

} // namespace

Instant EventZone::instantOf(WallTime time) const
{
    if (const auto *zone = std::get_if<QTimeZone>(&m_zone))
        return LocalTime::firstShowing(time, *zone);
    const auto &observances = std::get<std::vector<ZoneObservance>>(m_zone);
    return Instant(time.time_since_epoch() - offsetAt(observances, time));
}

} // namespace Panorel::X11
