#pragma once

#include "PanorelPorts/CalendarPort.h"
#include "PanorelX11/Calendar/CalendarAvailability.h"
#include "PanorelX11/Session/BackgroundThread.h"

#include <QTimer>

#include <deque>
#include <gio/gio.h>

namespace Panorel {

class AppLog;

namespace X11 {

class CalendarReader;

/// The user's calendars: those of the desktop's calendar service, where it is installed, and
/// folders of .ics files. They are read on a thread of its own, one query at a time; the answer
/// comes through the main loop. What a calendar can't answer in time is left out. A query that
/// can't be stopped is never answered, nor are those after it.
class DesktopCalendar final : public CalendarPort {
public:
    /// The log and the clock outlive it.
    DesktopCalendar(AppLog &log, const Clock &clock,
                    CalendarPlaces places = CalendarPlaces::ofSession(),
                    std::chrono::milliseconds deadline = std::chrono::seconds(20));
    /// Queries under way are never answered. Returns within about a second whatever hangs.
    ~DesktopCalendar() override;

    CalendarAuthorization authorization() override;
    void requestAccess(std::function<void(bool granted)> completion) override;
    void events(Instant from, Instant to,
                std::function<void(const Events &events)> completion) override;

private:
    class Outlet;
    struct Query {
        Instant from;
        Instant to;
        std::function<void(const Events &events)> completion;
    };

    void startNext();
    void answer(const Events &events);

    CalendarPlaces m_places;
    std::chrono::milliseconds m_deadline;
    CalendarAvailability m_availability;
    std::shared_ptr<Outlet> m_outlet;
    std::shared_ptr<CalendarReader> m_reader; ///< used on the thread only
    std::deque<Query> m_queries;              ///< the first is being answered if `m_cancel` is set
    std::shared_ptr<GCancellable> m_cancel;
    QTimer m_timer;
    BackgroundThread m_thread;
};

} // namespace X11

} // namespace Panorel
