#pragma once

#include "PanorelPorts/AlarmPort.h"

namespace Panorel::X11 {

/// Alarms of the kernel's real-time clock, which keeps counting while the machine sleeps and
/// follows when the clock is set.
class WallClockAlarm final : public AlarmPort {
public:
    std::unique_ptr<ScheduledTask> runAt(Instant when, std::function<void()> action) override;
};

} // namespace Panorel::X11
