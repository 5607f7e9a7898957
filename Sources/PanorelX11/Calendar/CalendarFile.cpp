#include "PanorelX11/Calendar/CalendarFile.h"

#include "PanorelX11/Calendar/ComponentSplitter.h"
#include "PanorelX11/Calendar/ICalValues.h"

namespace Panorel::X11 {

namespace {

using namespace std::chrono;

constexpr std::size_t mostTimes = 5'000; // listed one by one, for one event or zone

QString text(icalproperty *property)
{
    const icalvalue *value = icalproperty_get_value(property);
    const char *characters = nullptr;
    if (value && icalvalue_isa(value) == ICAL_TEXT_VALUE)
        characters = icalvalue_get_text(value);
    else if (value && icalvalue_isa(value) == ICAL_URI_VALUE)
        characters = icalvalue_get_uri(value);
    else if (value && icalvalue_isa(value) == ICAL_X_VALUE)
        characters = icalvalue_get_x(value);
    return QString::fromUtf8(characters);
}

/// Links of meetings where the programs that make the calendars put them.
bool isMeetingLink(icalproperty *property)
{
    if (icalproperty_isa(property) == ICAL_CONFERENCE_PROPERTY)
        return true;
    const char *name = icalproperty_get_x_name(property);
    return name
           && (qstricmp(name, "X-GOOGLE-CONFERENCE") == 0
               || qstricmp(name, "X-MICROSOFT-SKYPETEAMSMEETINGURL") == 0);
}

void readTexts(icalcomponent *component, EventRecord &event)
{
    std::optional<QString> link;
    for (icalproperty *property = icalcomponent_get_first_property(component, ICAL_ANY_PROPERTY);
         property; property = icalcomponent_get_next_property(component, ICAL_ANY_PROPERTY)) {
        const auto take = [&](std::optional<QString> &target) {
            if (!target)
                target = text(property);
        };
        switch (icalproperty_isa(property)) {
        case ICAL_UID_PROPERTY:
            event.uid = text(property);
            break;
        case ICAL_SUMMARY_PROPERTY:
            take(event.text.title);
            break;
        case ICAL_LOCATION_PROPERTY:
            take(event.text.location);
            break;
        case ICAL_DESCRIPTION_PROPERTY:
            take(event.text.notes);
            break;
        case ICAL_URL_PROPERTY:
            take(event.text.url);
            break;
        case ICAL_SEQUENCE_PROPERTY:
            event.sequence = icalproperty_get_sequence(property);
            break;
        case ICAL_STATUS_PROPERTY:
            event.isCancelled = icalproperty_get_status(property) == ICAL_STATUS_CANCELLED;
            break;
        default:
            if (isMeetingLink(property))
                take(link);
        }
    }
    if (!event.text.url)
        event.text.url = link;
}

/// Every time of one kind of property, which may list several.
std::vector<EventTime> times(icalcomponent *component, icalproperty_kind kind, ZoneTable &zones)
{
    std::vector<EventTime> result;
    for (icalproperty *property = icalcomponent_get_first_property(component, kind);
         property && result.size() < mostTimes;
         property = icalcomponent_get_next_property(component, kind)) {
        if (const auto time = readTime(property, zones))
            result.push_back(*time);
    }
    return result;
}

seconds readDuration(icalcomponent *component, const EventTime &start, ZoneTable &zones)
{
    seconds duration = start.isDate ? days(1) : days(0);
    if (const auto ends = times(component, ICAL_DTEND_PROPERTY, zones); !ends.empty()) {
        const ZoneTable::Zone local = zones.local();
        const auto instant = [&](const EventTime &time) {
            return (time.zone ? time.zone : local)->instantOf(time.wall);
        };
        duration = duration_cast<seconds>(instant(ends.front()) - instant(start));
    } else if (auto *property =
                   icalcomponent_get_first_property(component, ICAL_DURATION_PROPERTY)) {
        duration = seconds(icaldurationtype_as_int(icalproperty_get_duration(property)));
    }
    return std::max(duration, seconds(0));
}

void readRules(icalcomponent *component, EventRecord &event)
{
    for (icalproperty *property = icalcomponent_get_first_property(component, ICAL_RRULE_PROPERTY);
         property; property = icalcomponent_get_next_property(component, ICAL_RRULE_PROPERTY)) {
        auto rule = readRule(icalproperty_get_rrule(property));
        if (!rule)
            continue;
        if (rule->isUntilInUtc && rule->rule.until) {
            // By the event's own clock that is within a day.
            event.repeatsUntil = Instant(rule->rule.until->time_since_epoch());
            *rule->rule.until += days(1);
        }
        event.rules.push_back(std::move(rule->rule));
    }
}

std::optional<EventRecord> readEvent(icalcomponent *component, ZoneTable &zones)
{
    const auto starts = times(component, ICAL_DTSTART_PROPERTY, zones);
    if (starts.empty())
        return std::nullopt;
    EventRecord event;
    event.start = starts.front();
    readTexts(component, event);
    event.duration = readDuration(component, event.start, zones);
    readRules(component, event);
    event.added = times(component, ICAL_RDATE_PROPERTY, zones);
    event.removed = times(component, ICAL_EXDATE_PROPERTY, zones);
    const auto replaced = times(component, ICAL_RECURRENCEID_PROPERTY, zones);
    if (!replaced.empty())
        event.replaces = replaced.front();
    return event;
}

std::optional<ZoneObservance> readObservance(icalcomponent *component)
{
    auto *before = icalcomponent_get_first_property(component, ICAL_TZOFFSETFROM_PROPERTY);
    auto *after = icalcomponent_get_first_property(component, ICAL_TZOFFSETTO_PROPERTY);
    ZoneTable none;
    const auto starts = times(component, ICAL_DTSTART_PROPERTY, none);
    if (!before || !after || starts.empty())
        return std::nullopt;
    ZoneObservance observance;
    observance.start = starts.front().wall;
    observance.offsetBefore = seconds(icalproperty_get_tzoffsetfrom(before));
    observance.offsetAfter = seconds(icalproperty_get_tzoffsetto(after));
    if (abs(observance.offsetBefore) > days(1) || abs(observance.offsetAfter) > days(1))
        return std::nullopt;
    for (const EventTime &time : times(component, ICAL_RDATE_PROPERTY, none))
        observance.others.push_back(time.wall);
    auto *property = icalcomponent_get_first_property(component, ICAL_RRULE_PROPERTY);
    if (!property)
        return observance;
    // Zones change once or twice a year, and nothing else is worked out for each event's times.
    if (auto rule = readRule(icalproperty_get_rrule(property));
        rule && rule->rule.frequency == RecurrenceRule::Frequency::Yearly) {
        if (rule->isUntilInUtc && rule->rule.until)
            *rule->rule.until += observance.offsetBefore;
        observance.rules.push_back(std::move(rule->rule));
    }
    return observance;
}

void readZone(icalcomponent *component, ZoneTable &zones)
{
    constexpr std::size_t most = 500;
    std::vector<ZoneObservance> observances;
    for (icalcomponent *part = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT);
         part && observances.size() < most;
         part = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        if (auto observance = readObservance(part))
            observances.push_back(std::move(*observance));
    }
    auto *name = icalcomponent_get_first_property(component, ICAL_TZID_PROPERTY);
    if (name && !observances.empty())
        zones.add(text(name), std::make_shared<EventZone>(std::move(observances)));
}

} // namespace

CalendarFile CalendarFile::parse(QByteArray bytes)
{
    icalerror_set_errors_are_fatal(false);
    bytes.replace('\0', ' '); // the parser would stop there
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    const SplitCalendar parts = SplitCalendar::split(bytes);
    CalendarFile result;
    ZoneTable zones;
    for (const QByteArray &part : parts.zones) {
        if (const ComponentPointer component{icalparser_parse_string(part.constData())})
            readZone(component.get(), zones);
    }
    std::size_t unread = 0;
    for (const QByteArray &part : parts.events) {
        const ComponentPointer component{icalparser_parse_string(part.constData())};
        auto event = component ? readEvent(component.get(), zones) : std::nullopt;
        if (event)
            result.events.push_back(std::move(*event));
        else
            ++unread;
    }
    if (!parts.isWellFormed)
        result.problem = QStringLiteral("is not a whole calendar");
    else if (unread > 0)
        result.problem = QStringLiteral("holds %1 events that can't be read").arg(unread);
    return result;
}

} // namespace Panorel::X11
