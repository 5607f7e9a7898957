#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelCore/Triggers/TriggerRecord.h"

#include <QTimeZone>

namespace Panorel::TriggerMath {

/// The first moment later than `after` at which the zone's clock comes to hour:minute, second 0,
/// on one of the weekdays (1 Sunday to 7 Saturday; empty: any). A time that the clock shows twice
/// counts the first time only. One that it leaves out counts where the jump ends, and then the
/// weekday is that of the end; a day that is left out whole has no such moment.
///
/// Only for what TimeTrigger::canFire(): the search for a moment that never comes does not end.
Instant nextFire(Instant after, int hour, int minute, const std::set<qint64> &weekdays,
                 const QTimeZone &zone);

} // namespace Panorel::TriggerMath
