#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelX11/Calendar/CalendarReport.h"

#include <QByteArray>
#include <QtPlugin>

#include <gio/gio.h>
#include <memory>
#include <vector>

namespace Panorel::X11 {

/// The desktop's calendar service. Used on one thread, which need not run an event loop.
class CalendarService {
public:
    virtual ~CalendarService() = default;

    /// For each calendar that is switched on, in iCalendar form, every event that occurs between
    /// the two moments, a recurring one with all that replaces its occurrences, and the time zones
    /// they use. May hold more. Calendars that can't be read before `cancel` are left out and
    /// reported.
    virtual std::vector<QByteArray> calendars(Instant from, Instant to, GCancellable *cancel) = 0;
};

/// What a plug-in offers that knows such a service. Plug-ins keep the service's libraries out of
/// the program where there is none.
class CalendarServiceFactory {
public:
    virtual ~CalendarServiceFactory() = default;

    virtual std::unique_ptr<CalendarService> create(CalendarReport report) = 0;
};

} // namespace Panorel::X11

Q_DECLARE_INTERFACE(Panorel::X11::CalendarServiceFactory,
                    "org.panorel.Panorel.CalendarServiceFactory/1")
