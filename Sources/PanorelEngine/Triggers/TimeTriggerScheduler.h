#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelCore/Triggers/TriggerRecord.h"
#include "PanorelPorts/AlarmPort.h"

#include <QTimeZone>

#include <functional>
#include <memory>
#include <optional>
#include <set>

namespace Panorel {

class AppLog;
class TriggerStore;

/// Fires the enabled time triggers, each at its next moment. It holds one alarm, aimed at the
/// earliest; of several at the same moment the first in the list fires and the others wait for
/// their next day. Main thread only.
class TimeTriggerScheduler {
public:
    /// Gets a copy of the trigger as it was when planned. It may change the store, call reload()
    /// and destroy the scheduler.
    using Fire = std::function<void(const TriggerRecord &trigger)>;
    using CurrentZone = std::function<QTimeZone()>;

    /// What is handed in by reference must outlive the scheduler. Nothing is planned yet.
    TimeTriggerScheduler(const TriggerStore &store, AlarmPort &alarms, AppLog &log,
                         const Clock &clock, Fire fire,
                         CurrentZone currentZone = QTimeZone::systemTimeZone);

    /// Plans anew, from now and in the time zone of now; to be called after every change of the
    /// store. A moment that is over but has not fired is given up.
    void reload();

private:
    struct Plan {
        TriggerRecord trigger;
        Instant when;
    };

    std::optional<Plan> earliest();
    bool canFire(const TriggerRecord &trigger);
    void alarmed(const Plan &plan);

    const TriggerStore &m_store;
    AlarmPort &m_alarms;
    AppLog &m_log;
    const Clock &m_clock;
    const Fire m_fire;
    const CurrentZone m_currentZone;
    std::set<QUuid> m_reported; ///< the triggers that can't fire and of which the log says so
    std::unique_ptr<ScheduledTask> m_timer;
    std::shared_ptr<const void> m_life = std::make_shared<char>(); ///< ends with the scheduler
};

} // namespace Panorel
