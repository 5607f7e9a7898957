#pragma once

#include "PanorelPorts/Scheduler.h"

namespace Panorel {

/// The scheduler of a running program: Qt's timers on the main event loop.
class QtScheduler final : public Scheduler {
public:
    std::unique_ptr<ScheduledTask> runAfter(std::chrono::milliseconds delay,
                                            std::function<void()> action) override;
    std::unique_ptr<ScheduledTask> repeat(std::chrono::milliseconds interval,
                                          std::function<void()> action) override;
};

} // namespace Panorel
