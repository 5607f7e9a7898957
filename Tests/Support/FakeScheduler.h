#pragma once

#include "PanorelPorts/Scheduler.h"
#include "Support/TestDataDir.h"

#include <list>

namespace Panorel {

/// Timers on the fake clock: nothing runs until the test lets the time pass.
class FakeScheduler final : public Scheduler {
public:
    explicit FakeScheduler(FakeClock &clock) : m_clock(clock) {}

    std::unique_ptr<ScheduledTask> runAfter(std::chrono::milliseconds delay,
                                            std::function<void()> action) override;
    std::unique_ptr<ScheduledTask> repeat(std::chrono::milliseconds interval,
                                          std::function<void()> action) override;

    /// Moves the clock, stopping at every task that comes due on the way.
    void advance(std::chrono::milliseconds by);

private:
    struct Entry {
        Instant due;
        std::chrono::milliseconds interval; ///< 0: once
        std::function<void()> action;
    };
    class Task;

    std::unique_ptr<ScheduledTask> add(const Entry &entry);

    FakeClock &m_clock;
    std::list<Entry> m_entries;
};

} // namespace Panorel
