#include "PanorelCore/Triggers/TriggerMath.h"

#include "PanorelCore/Triggers/LocalTime.h"

#include <optional>

namespace Panorel::TriggerMath {

namespace {

using std::chrono::days;
using std::chrono::local_days;

local_days dayOf(Instant instant, const QTimeZone &zone)
{
    return std::chrono::floor<days>(LocalTime::shownAt(instant, zone));
}

/// Absent where the day itself is left out, as when a country moves across the date line.
std::optional<Instant> onDay(local_days day, std::chrono::minutes timeOfDay, const QTimeZone &zone)
{
    const Instant moment = LocalTime::firstShowing(day + timeOfDay, zone);
    if (dayOf(moment, zone) == day || dayOf(LocalTime::firstShowing(day, zone), zone) == day)
        return moment;
    return {};
}

qint64 weekdayNumber(local_days day)
{
    return std::chrono::weekday(day).c_encoding() + 1;
}

} // namespace

Instant nextFire(Instant after, int hour, int minute, const std::set<qint64> &weekdays,
                 const QTimeZone &zone)
{
    const auto timeOfDay = std::chrono::hours(hour) + std::chrono::minutes(minute);
    // No earlier day needs a look: the clock has passed them, even where it was put back since.
    for (local_days day = dayOf(after, zone);; day += days(1)) {
        const auto moment = onDay(day, timeOfDay, zone);
        if (!moment || *moment <= after)
            continue;
        if (weekdays.empty() || weekdays.contains(weekdayNumber(dayOf(*moment, zone))))
            return *moment;
    }
}

} // namespace Panorel::TriggerMath
