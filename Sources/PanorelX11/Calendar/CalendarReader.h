#pragma once

#include "PanorelX11/Calendar/CalendarFolders.h"
#include "PanorelX11/Calendar/CalendarPlaces.h"
#include "PanorelX11/Calendar/CalendarService.h"

namespace Panorel::X11 {

/// Reads all calendars of the user. Opens and loads nothing before it is asked. On one thread.
class CalendarReader {
public:
    CalendarReader(CalendarPlaces places, CalendarReport report);

    /// The occurrences that begin or go on in [from, to), as far as it gets before `cancel`.
    CalendarPort::Events events(Instant from, Instant to, GCancellable *cancel);

private:
    CalendarPort::Events serviceEvents(Instant from, Instant to, GCancellable *cancel);
    bool loadService();

    CalendarPlaces m_places;
    CalendarReport m_report;
    CalendarFolders m_folders;
    std::unique_ptr<CalendarService> m_service;
};

} // namespace Panorel::X11
