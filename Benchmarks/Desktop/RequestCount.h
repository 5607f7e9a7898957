#pragma once

#include <cstdint>

namespace Panorel::Bench {

/// What this process has sent to display servers through xcb since it started. It is counted where
/// the library's own calls pass, so that nobody has to know that he is watched.
struct RequestCount {
    std::int64_t requests = 0;
    /// Waits for an answer that was not asked for before the wait before: answers that are
    /// collected together count once.
    std::int64_t roundTrips = 0;

    /// Of the requests those that ask the window manager for something.
    std::int64_t messages = 0;

    static RequestCount now();

    RequestCount operator-(const RequestCount &other) const
    {
        return {requests - other.requests, roundTrips - other.roundTrips,
                messages - other.messages};
    }
};

} // namespace Panorel::Bench
