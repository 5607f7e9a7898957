#pragma once

#include <QString>

#include <functional>

namespace Panorel::X11 {

/// Takes what can't be read about the calendars, a line for the log each time. A line that was
/// taken lately is not logged again.
using CalendarReport = std::function<void(const QString &line)>;

} // namespace Panorel::X11
