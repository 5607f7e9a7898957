#pragma once

#include "PanorelPorts/CalendarPort.h"

namespace Panorel {

class AppLog;
class Clock;

namespace X11 {

/// The user's calendars: those of the desktop's calendar service, where it is installed, and
/// folders of .ics files.
class DesktopCalendar final : public CalendarPort {
public:
    /// Both outlive it.
    DesktopCalendar(AppLog &log, const Clock &clock);

    CalendarAuthorization authorization() override;
    void requestAccess(std::function<void(bool granted)> completion) override;
    void events(Instant from, Instant to,
                std::function<void(const Events &events)> completion) override;
};

} // namespace X11

} // namespace Panorel
