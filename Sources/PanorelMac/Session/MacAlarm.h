#pragma once

#include "PanorelPorts/AlarmPort.h"

namespace Panorel::Mac {

/// Alarms of the system's wall clock, which keeps counting while the machine sleeps and follows
/// when the clock is set.
class MacAlarm final : public AlarmPort {
public:
    std::unique_ptr<ScheduledTask> runAt(Instant when, std::function<void()> action) override;
};

} // namespace Panorel::Mac
