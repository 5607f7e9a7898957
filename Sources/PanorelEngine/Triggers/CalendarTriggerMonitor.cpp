#include "PanorelEngine/Triggers/CalendarTriggerMonitor.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Triggers/TriggerStore.h"
#include "PanorelCore/Triggers/VideoLinkDetector.h"

#include <QStringList>

#include <algorithm>

namespace Panorel {

namespace {

constexpr std::chrono::seconds pollInterval(60);
constexpr std::chrono::minutes lookAhead(60);

bool isVideoMeeting(const CalendarEvent &event)
{
    QStringList texts;
    for (const auto &text : {event.title, event.location, event.notes, event.url}) {
        if (text)
            texts.append(*text);
    }
    return VideoLinkDetector::containsVideoLink(texts.join(QLatin1Char(' ')));
}

bool isReached(const CalendarVideoTrigger &trigger, Instant start, Instant now)
{
    // Nothing later than the look-ahead is seen; a lead time is as the file has it.
    const std::chrono::minutes lead(
        std::clamp(trigger.leadMinutes, qint64(0), qint64(lookAhead.count())));
    return start > now && start <= now + lead;
}

} // namespace

CalendarTriggerMonitor::CalendarTriggerMonitor(const TriggerStore &store, CalendarPort &calendar,
                                               Scheduler &scheduler, AppLog &log,
                                               const Clock &clock, Fire fire)
    : m_store(store), m_calendar(calendar), m_scheduler(scheduler), m_log(log), m_clock(clock),
      m_fire(std::move(fire))
{}

void CalendarTriggerMonitor::requestAccess(std::function<void(bool granted)> completion)
{
    const std::weak_ptr<const void> life = m_life;
    m_calendar.requestAccess([life, completion = std::move(completion)](bool granted) {
        if (!life.expired())
            completion(granted);
    });
}

void CalendarTriggerMonitor::start()
{
    if (m_timer)
        return;
    m_timer = m_scheduler.repeat(pollInterval, [this] { tick(); });
    tick();
}

void CalendarTriggerMonitor::tick()
{
    if (triggers().empty() || authorization() != CalendarAuthorization::FullAccess)
        return;
    giveUpOverdueQuery();
    if (m_query)
        return;
    const int number = ++m_lastQuery;
    m_query = {number, m_clock.steadyNow()};
    const Instant now = m_clock.now();
    const std::weak_ptr<const void> life = m_life;
    m_calendar.events(now, now + lookAhead,
                      [this, life, number](const CalendarPort::Events &events) {
                          if (!life.expired())
                              answered(number, events);
                      });
}

std::vector<TriggerRecord> CalendarTriggerMonitor::triggers() const
{
    std::vector<TriggerRecord> found;
    std::ranges::copy_if(m_store.all(), std::back_inserter(found), [](const auto &trigger) {
        return trigger.enabled && trigger.kind.calendarVideo();
    });
    return found;
}

void CalendarTriggerMonitor::giveUpOverdueQuery()
{
    if (!m_query || m_clock.steadyNow() - m_query->since < pollInterval)
        return;
    m_query.reset();
    if (!m_reportedDelay)
        m_log.log(QStringLiteral("calendar: no answer within a minute, asking again"));
    m_reportedDelay = true; // a calendar that hangs would fill the log
}

void CalendarTriggerMonitor::answered(int number, const CalendarPort::Events &events)
{
    if (!m_query || m_query->number != number)
        return; // given up meanwhile
    m_query.reset();
    m_reportedDelay = false;
    if (authorization() != CalendarAuthorization::FullAccess)
        return;
    // Read again, because the answer may have taken its time.
    const Instant now = m_clock.now();
    const std::vector<TriggerRecord> current = triggers();
    const std::weak_ptr<const void> life = m_life;
    const Fire fire = m_fire; // outlives the monitor, should the action end that
    for (const CalendarEvent &event : events) {
        if (!isNew(event) || !event.start || !isVideoMeeting(event))
            continue;
        const QString title = event.title.value_or(QStringLiteral("meeting"));
        for (const TriggerRecord &trigger : current) {
            if (!isReached(*trigger.kind.calendarVideo(), *event.start, now))
                continue;
            m_firedEventIDs.insert(*event.identifier);
            fire(trigger, title);
            if (life.expired())
                return;
            m_log.log(QStringLiteral("calendar trigger fired for “") + forLog(title)
                      + QStringLiteral("”"));
        }
    }
}

bool CalendarTriggerMonitor::isNew(const CalendarEvent &event) const
{
    return event.identifier && !m_firedEventIDs.contains(*event.identifier);
}

} // namespace Panorel
