#pragma once

#include "PanorelPorts/AlarmPort.h"

namespace Panorel {

class AppLog;

}

namespace Panorel::X11 {

/// Alarms of the kernel's real-time clock, which keeps counting while the machine sleeps and
/// follows when the clock is set: an alarm then comes at once, due or not, so that its owner plans
/// by the new time. Where the process can't have another descriptor, which an alarm takes, it asks
/// again until it can.
class WallClockAlarm final : public AlarmPort {
public:
    /// The log outlives all alarms.
    explicit WallClockAlarm(AppLog &log,
                            std::chrono::milliseconds askAgainAfter = std::chrono::seconds(10))
        : m_log(log), m_askAgainAfter(askAgainAfter)
    {}

    std::unique_ptr<ScheduledTask> runAt(Instant when, std::function<void()> action) override;

private:
    AppLog &m_log;
    const std::chrono::milliseconds m_askAgainAfter;
};

} // namespace Panorel::X11
