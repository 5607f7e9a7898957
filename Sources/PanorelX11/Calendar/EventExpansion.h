#pragma once

#include "PanorelX11/Calendar/CalendarFile.h"

#include <QHash>

#include <set>

namespace Panorel::X11 {

/// What the events of one calendar come to between two moments.
class EventExpansion {
public:
    /// The half-open time [from, to). A day that is meant wherever the user is begins with the
    /// day in `local`.
    EventExpansion(Instant from, Instant to, const QTimeZone &local);

    /// Adds events of the calendar. They must outlive this.
    void add(const std::vector<EventRecord> &events);

    /// The occurrences that begin or go on in that time. Those that another record of the same
    /// event replaces, and those that were cancelled, are left out.
    CalendarPort::Events occurrences();

    /// The titles of events that repeat too often to be worked out whole.
    const QStringList &overlong() const { return m_overlong; }

private:
    /// Which occurrence of which event a record is about.
    using Identity = std::pair<QString, QString>;
    /// Which of its repetitions an event leaves out.
    struct Removed {
        std::set<WallTime> days;
        std::set<Instant> times;
    };

    Instant instantOf(const EventTime &time) const;
    QString key(const EventTime &time) const;
    void expand(const EventRecord &event, CalendarPort::Events &result);
    std::vector<EventTime> repetitions(const EventRecord &event, bool &isComplete);
    Removed removedFrom(const EventRecord &event) const;
    bool isAsked(const EventRecord &event, const EventTime &start) const;
    void append(const EventRecord &event, const EventTime &start, const QString &occurrence,
                CalendarPort::Events &result) const;

    Instant m_from;
    Instant m_to;
    EventZone m_local;
    QHash<Identity, const EventRecord *> m_records;
    std::vector<const EventRecord *> m_anonymous;
    QStringList m_overlong;
    RecurrenceBudget m_budget{10'000'000}; ///< of all events together, about a second
};

} // namespace Panorel::X11
