#pragma once

#include <chrono>

namespace Panorel {

/// A moment in UTC. Text forms drop the milliseconds, memory keeps them.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// Where the time comes from, so that tests can set it.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Instant now() const = 0;

    /// Time since an arbitrary start, never set back: for measuring durations only.
    virtual std::chrono::milliseconds steadyNow() const = 0;
};

class SystemClock final : public Clock {
public:
    Instant now() const override
    {
        return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    }
    std::chrono::milliseconds steadyNow() const override
    {
        return std::chrono::floor<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
};

} // namespace Panorel
