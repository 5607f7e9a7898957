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
    void advance(std::chrono::milliseconds by);

    /// Runs what comes next, at the time it is.
    void runNextEarly() { run(**std::ranges::min_element(m_tasks, {}, &Task::due)); }

    /// When each task will run, in the order made.
    std::vector<Instant> due() const;

private:
    struct Task final : ScheduledTask {
        Task(FakeScheduler &scheduler, std::chrono::milliseconds delay,
             std::chrono::milliseconds every, std::function<void()> what);
        ~Task() override { m_scheduler.m_tasks.remove(this); }

        Instant due;
        std::chrono::milliseconds interval; ///< 0: once
        std::function<void()> action;

    private:
        FakeScheduler &m_scheduler;
    };

    static void run(Task &task);

    FakeClock &m_clock;
    std::list<Task *> m_tasks; ///< in the order made
};

} // namespace Panorel
