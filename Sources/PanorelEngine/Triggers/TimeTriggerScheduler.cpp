#include "PanorelEngine/Triggers/TimeTriggerScheduler.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Triggers/TriggerMath.h"
#include "PanorelCore/Triggers/TriggerStore.h"

namespace Panorel {

TimeTriggerScheduler::TimeTriggerScheduler(const TriggerStore &store, AlarmPort &alarms,
                                           AppLog &log, const Clock &clock, Fire fire,
                                           CurrentZone currentZone)
    : m_store(store), m_alarms(alarms), m_log(log), m_clock(clock), m_fire(std::move(fire)),
      m_currentZone(std::move(currentZone))
{}

void TimeTriggerScheduler::reload()
{
    m_timer.reset();
    const auto plan = earliest();
    if (!plan)
        return;
    const std::weak_ptr<const void> life = m_life;
    m_timer = m_alarms.runAt(plan->when, [this, life, plan = *plan] {
        if (!life.expired())
            alarmed(Plan(plan)); // a copy: the alarm may go, and what it holds with it
    });
}

std::optional<TimeTriggerScheduler::Plan> TimeTriggerScheduler::earliest()
{
    const Instant now = m_clock.now();
    const QTimeZone zone = m_currentZone();
    std::optional<Plan> earliest;
    for (const TriggerRecord &trigger : m_store.all()) {
        const TimeTrigger *time = trigger.kind.time();
        if (!time || !trigger.enabled || !canFire(trigger))
            continue;
        const Instant when =
            TriggerMath::nextFire(now, int(time->hour), int(time->minute), time->weekdays, zone);
        if (!earliest || when < earliest->when)
            earliest = Plan{trigger, when};
    }
    return earliest;
}

bool TimeTriggerScheduler::canFire(const TriggerRecord &trigger)
{
    if (trigger.kind.time()->canFire())
        return true;
    if (m_reported.insert(trigger.id).second)
        m_log.log(QStringLiteral("trigger: there is no such time: ") + trigger.kind.description());
    return false;
}

void TimeTriggerScheduler::alarmed(const Plan &plan)
{
    const std::unique_ptr<ScheduledTask> done = std::move(m_timer);
    if (m_clock.now() < plan.when) // the clock was set back meanwhile
        return reload();
    const std::weak_ptr<const void> life = m_life;
    const Fire fire = m_fire; // outlives the scheduler, should the action end that
    fire(plan.trigger);
    if (life.expired())
        return;
    m_log.log(QStringLiteral("trigger fired: ") + plan.trigger.kind.description());
    reload();
}

} // namespace Panorel
