#pragma once

#include "PanorelX11/Calendar/CalendarFile.h"

#include <QHash>

#include <libical/ical.h>

namespace Panorel::X11 {

struct ComponentDeleter {
    void operator()(icalcomponent *component) const { icalcomponent_free(component); }
};
using ComponentPointer = std::unique_ptr<icalcomponent, ComponentDeleter>;

/// The zones by which one calendar's times are meant, by name.
class ZoneTable {
public:
    using Zone = std::shared_ptr<const EventZone>;

    /// One that the calendar brings along; it goes before the system's of that name.
    void add(const QString &name, Zone zone) { m_zones.insert(name, std::move(zone)); }

    /// Null for a name that means nothing. Names are those of the calendar, of the system's zones,
    /// also at the end of a longer path, or those that Windows gives.
    Zone find(const QString &name);
    static Zone utc();
    /// Where the user is now.
    static Zone local();

private:
    QHash<QString, Zone> m_zones;
};

/// The property's own time, nothing where it is none.
std::optional<EventTime> readTime(icalproperty *property, ZoneTable &zones);

struct ReadRule {
    RecurrenceRule rule;
    bool isUntilInUtc = false;
};

/// Nothing where it is no rule, or not one of the Gregorian calendar.
std::optional<ReadRule> readRule(const icalrecurrencetype &read);

} // namespace Panorel::X11
