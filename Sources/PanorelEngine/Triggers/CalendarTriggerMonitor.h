#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelCore/Triggers/TriggerRecord.h"
#include "PanorelPorts/CalendarPort.h"
#include "PanorelPorts/Scheduler.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace Panorel {

class AppLog;
class TriggerStore;

/// Fires the enabled calendar triggers: looks once a minute at the events that begin within the
/// hour and fires for each with a link to a video meeting, once per occurrence, as soon as a
/// trigger's lead time is reached. A lead time above an hour therefore acts as an hour. Without a
/// trigger or without access the calendars are left alone. Main thread only.
class CalendarTriggerMonitor {
public:
    /// May change the store and destroy the monitor. `title` is "meeting" for an event without.
    using Fire = std::function<void(const TriggerRecord &trigger, const QString &title)>;

    /// What is handed in by reference must outlive the monitor.
    CalendarTriggerMonitor(const TriggerStore &store, CalendarPort &calendar, Scheduler &scheduler,
                           AppLog &log, const Clock &clock, Fire fire);

    CalendarAuthorization authorization() const { return m_calendar.authorization(); }

    /// The answer comes on the main thread, possibly within the call, and not at all once the
    /// monitor is gone.
    void requestAccess(std::function<void(bool granted)> completion);

    /// Looks at once and then every minute. A second call does nothing.
    void start();

    /// Looks now. While an earlier look waits for the calendars, nothing; one that has waited for
    /// a minute is given up.
    void tick();

private:
    struct Query {
        int number = 0;
        std::chrono::milliseconds since; ///< on the steady clock
    };

    std::vector<TriggerRecord> triggers() const;
    void giveUpOverdueQuery();
    void answered(int number, const CalendarPort::Events &events);
    bool isNew(const CalendarEvent &event) const;

    const TriggerStore &m_store;
    CalendarPort &m_calendar;
    Scheduler &m_scheduler;
    AppLog &m_log;
    const Clock &m_clock;
    const Fire m_fire;
    std::unique_ptr<ScheduledTask> m_timer;
    std::optional<Query> m_query; ///< the one whose answer is awaited
    int m_lastQuery = 0;
    bool m_reportedDelay = false; ///< since the last answer
    std::set<QString> m_firedEventIDs;
    std::shared_ptr<const void> m_life = std::make_shared<char>(); ///< ends with the monitor
};

} // namespace Panorel
