#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelPorts/Scheduler.h"

#include <functional>
#include <memory>

namespace Panorel {

/// Runs things at a time of day, where the Scheduler knows only how long from now: it follows the
/// wall clock when that is set, and time asleep counts.
class AlarmPort {
public:
    virtual ~AlarmPort() = default;

    /// Once, on the main thread and from the event loop, as soon as the wall clock shows `when` or
    /// later; a moment that went by while the machine slept comes right after it wakes. It may
    /// come early where the clock is set meanwhile. The caller owns the task; the action may
    /// destroy it.
    [[nodiscard]] virtual std::unique_ptr<ScheduledTask> runAt(Instant when,
                                                               std::function<void()> action) = 0;
};

} // namespace Panorel
