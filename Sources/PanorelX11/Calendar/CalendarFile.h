#pragma once

#include "PanorelPorts/CalendarPort.h"
#include "PanorelX11/Calendar/EventZone.h"

#include <QByteArray>

#include <memory>

namespace Panorel::X11 {

/// A time as a calendar writes it.
struct EventTime {
    WallTime wall;
    std::shared_ptr<const EventZone> zone; ///< null: wherever the user is
    bool isDate = false;                   ///< a day as a whole; `wall` is its midnight
};

/// An event as a calendar writes it: once, repeating, or one occurrence that differs from the rest.
struct EventRecord {
    QString uid;        ///< empty where the calendar gives none
    CalendarEvent text; ///< without identifier and start
    EventTime start;
    std::chrono::seconds duration{};
    std::optional<EventTime> replaces; ///< where the differing occurrence was before
    int sequence = 0;                  ///< of two with one identity the higher is the newer
    bool isCancelled = false;
    std::vector<RecurrenceRule> rules;
    std::optional<Instant> repeatsUntil; ///< beside the rules' own wall-clock limits
    std::vector<EventTime> added;
    std::vector<EventTime> removed;
};

/// What a text in iCalendar form holds.
struct CalendarFile {
    std::vector<EventRecord> events;
    QString problem; ///< fit for the log; empty where everything was understood

    /// Takes whatever it is given: the events that can be read are read. Work and memory are
    /// proportional to the size. One thread at a time.
    static CalendarFile parse(QByteArray text);
};

} // namespace Panorel::X11
