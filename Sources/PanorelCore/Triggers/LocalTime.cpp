#include "PanorelCore/Triggers/LocalTime.h"

#include <QDateTime>

namespace Panorel::LocalTime {

namespace {

using std::chrono::milliseconds;

milliseconds offset(Instant instant, const QTimeZone &zone)
{
    const auto moment = QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), Qt::UTC);
    return std::chrono::seconds(zone.offsetFromUtc(moment));
}

} // namespace

Time shownAt(Instant instant, const QTimeZone &zone)
{
    return Time(instant.time_since_epoch() + offset(instant, zone));
}

Instant firstShowing(Time time, const QTimeZone &zone)
{
    // Not by QDateTime, which moves a time that is left out to before the jump, and may choose
    // the second of two. No zone is a day away from UTC, so the moment is between these two.
    constexpr std::chrono::hours day(24);
    Instant before = Instant(time.time_since_epoch()) - day;
    Instant after = before + 2 * day;
    const milliseconds offsetBefore = offset(before, zone);
    const milliseconds offsetAfter = offset(after, zone);
    const Instant byOffsetBefore(time.time_since_epoch() - offsetBefore);
    if (offsetBefore == offsetAfter)
        return byOffsetBefore;
    while (after - before > milliseconds(1)) {
        const Instant middle = before + (after - before) / 2;
        (offset(middle, zone) == offsetBefore ? before : after) = middle;
    }
    const Instant change = after;
    if (byOffsetBefore < change)
        return byOffsetBefore;
    return std::max(change, Instant(time.time_since_epoch() - offsetAfter));
}

} // namespace Panorel::LocalTime
