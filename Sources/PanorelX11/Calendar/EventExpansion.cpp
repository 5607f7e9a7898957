#include "PanorelX11/Calendar/EventExpansion.h"

#include <QDateTime>

#include <algorithm>

namespace Panorel::X11 {

namespace {

using namespace std::chrono;

/// How many occurrences of one event count; ten meetings a minute are none.
constexpr int mostOccurrences = 1'000;

/// An occurrence that began longer ago is over for every purpose, though it may still go on.
constexpr seconds longest = days(31);

/// The clocks of all zones are within a day of UTC's.
constexpr seconds anyZone = days(1);

QString written(WallTime time, const QString &form)
{
    const auto sinceEpoch = duration_cast<milliseconds>(time.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch, Qt::UTC).toString(form);
}

bool isRecurring(const EventRecord &event)
{
    return !event.replaces && (!event.rules.empty() || !event.added.empty());
}

} // namespace

EventExpansion::EventExpansion(Instant from, Instant to, const QTimeZone &local)
    : m_from(from), m_to(to), m_local(local)
{}

void EventExpansion::add(const std::vector<EventRecord> &events)
{
    for (const EventRecord &event : events) {
        if (event.uid.isEmpty()) {
            m_anonymous.push_back(&event);
            continue;
        }
        const Identity identity(event.uid, event.replaces ? key(*event.replaces) : QString());
        const EventRecord *&known = m_records[identity];
        if (!known || known->sequence <= event.sequence)
            known = &event;
    }
}

CalendarPort::Events EventExpansion::occurrences()
{
    CalendarPort::Events result;
    for (const EventRecord *event : std::as_const(m_records))
        expand(*event, result);
    for (const EventRecord *event : m_anonymous)
        expand(*event, result);
    return result;
}

Instant EventExpansion::instantOf(const EventTime &time) const
{
    return (time.zone ? *time.zone : m_local).instantOf(time.wall);
}

/// Names one occurrence of an event, the same in all files that tell of it.
QString EventExpansion::key(const EventTime &time) const
{
    if (time.isDate)
        return written(time.wall, QStringLiteral("yyyyMMdd"));
    const auto form = QStringLiteral("yyyyMMdd'T'HHmmss");
    if (!time.zone)
        return written(time.wall, form);
    const auto utc = floor<seconds>(instantOf(time).time_since_epoch());
    return written(WallTime(utc), form) + u'Z';
}

void EventExpansion::expand(const EventRecord &event, CalendarPort::Events &result)
{
    if (event.isCancelled)
        return;
    if (!isRecurring(event)) {
        if (isAsked(event, event.start))
            append(event, event.start, event.replaces ? key(*event.replaces) : QString(), result);
        return;
    }
    bool isComplete = true;
    std::vector<EventTime> times = repetitions(event, isComplete);
    std::erase_if(times, [&](const EventTime &time) { return !isAsked(event, time); });
    const Removed removed = times.empty() ? Removed() : removedFrom(event);
    int appended = 0;
    for (const EventTime &time : times) {
        if (removed.days.contains(floor<days>(time.wall))
            || removed.times.contains(instantOf(time)))
            continue;
        const QString occurrence = key(time);
        if (m_records.contains({event.uid, occurrence}))
            continue;
        if (++appended > mostOccurrences) {
            isComplete = false;
            break;
        }
        append(event, time, occurrence, result);
    }
    if (!isComplete)
        m_overlong.append(event.text.title.value_or(event.uid));
}

/// The times of a recurring event around the asked time, in order, each once.
std::vector<EventTime> EventExpansion::repetitions(const EventRecord &event, bool &isComplete)
{
    RecurrenceBudget budget;
    // What an ordinary rule takes is left to each, whatever the others used up.
    constexpr int ordinary = 2'000;
    budget.stepsLeft = std::clamp(m_budget.stepsLeft, ordinary, budget.stepsLeft);
    m_budget.stepsLeft -= budget.stepsLeft;
    const auto wall = [](Instant instant) {
        return WallTime(floor<seconds>(instant.time_since_epoch()));
    };
    const WallTime from = wall(m_from) - anyZone - std::min(event.duration, longest);
    const WallTime to = wall(m_to) + anyZone;
    std::vector<EventTime> result{event.start};
    for (const RecurrenceRule &rule : event.rules) {
        for (const WallTime time :
             Panorel::X11::occurrences(rule, event.start.wall, from, to, budget)) {
            result.push_back({time, event.start.zone, event.start.isDate});
            if (event.repeatsUntil && instantOf(result.back()) > *event.repeatsUntil)
                result.pop_back();
        }
    }
    isComplete = !budget.isSpent();
    m_budget.stepsLeft += std::max(budget.stepsLeft, 0);
    result.insert(result.end(), event.added.begin(), event.added.end());
    std::erase_if(result,
                  [&](const EventTime &time) { return time.wall < from || time.wall > to; });
    std::ranges::sort(result, {}, &EventTime::wall);
    const auto same = [](const EventTime &left, const EventTime &right) {
        return left.wall == right.wall && left.zone == right.zone && left.isDate == right.isDate;
    };
    result.erase(std::unique(result.begin(), result.end(), same), result.end());
    return result;
}

EventExpansion::Removed EventExpansion::removedFrom(const EventRecord &event) const
{
    Removed result;
    for (const EventTime &time : event.removed) {
        // Some calendars remove a meeting by naming its day.
        if (time.isDate)
            result.days.insert(time.wall);
        else
            result.times.insert(instantOf(time));
    }
    return result;
}

bool EventExpansion::isAsked(const EventRecord &event, const EventTime &start) const
{
    const Instant begin = instantOf(start);
    return begin < m_to && (begin >= m_from || begin + event.duration > m_from);
}

void EventExpansion::append(const EventRecord &event, const EventTime &start,
                            const QString &occurrence, CalendarPort::Events &result) const
{
    CalendarEvent told = event.text;
    told.start = instantOf(start);
    // An event without identity is known by what seldom changes about it.
    const QString name = event.uid.isEmpty() ? u'@' + key(event.start) : event.uid;
    told.identifier = occurrence.isEmpty() ? name : name + u'/' + occurrence;
    result.push_back(std::move(told));
}

} // namespace Panorel::X11
