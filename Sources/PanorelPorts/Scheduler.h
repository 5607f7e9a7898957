#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace Panorel {

/// Something the scheduler will run; destroying it cancels that.
class ScheduledTask {
public:
    virtual ~ScheduledTask() = default;
};

/// Runs things later on the main thread. Delays count time awake.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Once, not before the delay is over and never within the call itself. The caller owns the
    /// task; the action may destroy it.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> runAfter(std::chrono::milliseconds delay,
                                                                  std::function<void()> action) = 0;

    /// Again and again until the task is destroyed.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> repeat(std::chrono::milliseconds interval,
                                                                std::function<void()> action) = 0;
};

} // namespace Panorel
