#pragma once

#include "PanorelPorts/AlarmPort.h"
#include "PanorelPorts/Scheduler.h"
#include "Support/TestDataDir.h"

#include <algorithm>
#include <list>
#include <vector>

namespace Panorel {

/// Timers on the fake clock: nothing runs until the test lets the time pass.
class FakeScheduler final : public Scheduler, public AlarmPort {
public:
    explicit FakeScheduler(FakeClock &clock) : m_clock(clock) {}

    std::unique_ptr<ScheduledTask> runAfter(std::chrono::milliseconds delay,
                                            std::function<void()> action) override
    {
        return std::make_unique<Task>(*this, delay, std::chrono::milliseconds(0), action);
    }
    std::unique_ptr<ScheduledTask> repeat(std::chrono::milliseconds interval,
                                          std::function<void()> action) override
    {
        return std::make_unique<Task>(*this, interval, interval, action);
    }

    /// On the same clock. To let the machine sleep, advance the clock itself first.
    std::unique_ptr<ScheduledTask> runAt(Instant when, std::function<void()> action) override
    {
        return runAfter(std::max(when - m_clock.now(), std::chrono::milliseconds(0)), action);
    }

    /// Moves the clock, stopping at every task that comes due on the way.
    void advance(std::chrono::milliseconds by)
    {
        const Instant end = m_clock.now() + by;
        for (;;) {
            const auto next = std::ranges::min_element(m_tasks, {}, &Task::due);
            if (next == m_tasks.end() || (*next)->due > end)
                break;
            Task &task = **next;
            m_clock.set(std::max(m_clock.now(), task.due)); // late, where the test moved the clock
            run(task);
        }
        m_clock.set(end);
    }

    /// Runs what comes next, at the time it is.
    void runNextEarly() { run(**std::ranges::min_element(m_tasks, {}, &Task::due)); }

    /// When each task will run, in the order made.
    std::vector<Instant> due() const
    {
        std::vector<Instant> moments;
        std::ranges::transform(m_tasks, std::back_inserter(moments), &Task::due);
        return moments;
    }

private:
    struct Task final : ScheduledTask {
        Task(FakeScheduler &scheduler, std::chrono::milliseconds delay,
             std::chrono::milliseconds every, std::function<void()> what)
            : due(scheduler.m_clock.now() + delay), interval(every), action(std::move(what)),
              m_scheduler(scheduler)
        {
            scheduler.m_tasks.push_back(this);
        }
        ~Task() override { m_scheduler.m_tasks.remove(this); }

        Instant due;
        std::chrono::milliseconds interval; ///< 0: once
        std::function<void()> action;

    private:
        FakeScheduler &m_scheduler;
    };

    static void run(Task &task)
    {
        const auto action = task.action; // may destroy its own task
        task.due = task.interval.count() > 0 ? task.due + task.interval : Instant::max();
        action();
    }

    FakeClock &m_clock;
    std::list<Task *> m_tasks; ///< in the order made
};

} // namespace Panorel
