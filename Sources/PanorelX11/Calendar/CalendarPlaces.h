#pragma once

#include <QStringList>

namespace Panorel::X11 {

/// Where calendars are looked for.
struct CalendarPlaces {
    QStringList folders;   ///< of .ics files
    QString servicePlugin; ///< the library that knows the calendar service; empty where none

    /// Of this session and this installation of the program.
    static CalendarPlaces ofSession();

    /// Whether there is any calendar. Starts nothing. May take as long as a file system or the
    /// bus takes to answer; from any thread.
    bool holdAny() const;
    /// The same of the service alone.
    bool offerService() const;
};

} // namespace Panorel::X11
