#pragma once

#include "PanorelCore/Clock.h"

#include <QLocale>
#include <QTimeZone>

namespace Panorel {

/// When something happened, as one would say it: "just now", "5 minutes ago", "today at 9:05",
/// "yesterday at 17:30", else the date. What lies ahead (the clock was put back) is a date.
QString timeInWords(Instant then, Instant now, const QLocale &locale = {},
                    const QTimeZone &zone = QTimeZone::systemTimeZone());

} // namespace Panorel
