#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelX11/Calendar/RecurrenceRule.h"

#include <QTimeZone>

#include <variant>

namespace Panorel::X11 {

/// From when on a calendar's own time zone has which offset. Offsets are seconds east of UTC.
struct ZoneObservance {
    WallTime start; ///< by the clock before the change, as are the other times
    std::chrono::seconds offsetBefore{};
    std::chrono::seconds offsetAfter{};
    std::vector<RecurrenceRule> rules;
    std::vector<WallTime> others;
};

/// The clock by which an event's times are meant: that of a zone the system knows, or of one that
/// the calendar brings along.
class EventZone {
public:
    explicit EventZone(QTimeZone zone) : m_zone(std::move(zone)) {}
    /// At least one.
    explicit EventZone(std::vector<ZoneObservance> observances) : m_zone(std::move(observances)) {}

    /// The first moment at which the clock shows the time; where the clock leaves it out, one
    /// within an hour or so after the jump.
    Instant instantOf(WallTime time) const;

private:
    std::variant<QTimeZone, std::vector<ZoneObservance>> m_zone;
};

} // namespace Panorel::X11
