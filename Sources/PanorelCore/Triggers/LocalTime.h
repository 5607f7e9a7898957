#pragma once

#include "PanorelCore/Clock.h"

#include <QTimeZone>

/// What the clock on the wall shows in a time zone. Where it is put forward it leaves times out,
/// at most a day; where it is put back it shows times twice.
namespace Panorel::LocalTime {

using Time = std::chrono::local_time<std::chrono::milliseconds>;

/// An invalid zone counts as UTC.
Time shownAt(Instant instant, const QTimeZone &zone);

/// The first moment at which the clock shows the time or a later one: the first of two
/// occurrences, and the end of the jump where the time is left out. Changes of the clock are
/// expected to be more than two days apart.
Instant firstShowing(Time time, const QTimeZone &zone);

} // namespace Panorel::LocalTime
