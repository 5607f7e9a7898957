#pragma once

#include <cstdint>
#include <functional>

namespace Panorel::Mac {

/// Calls `changed` on the main thread, from the event loop, for every step of every change of the
/// displays while it lives, those included that only announce one. Main thread only.
class ReconfigurationCallback {
public:
    explicit ReconfigurationCallback(std::function<void()> changed);
    ~ReconfigurationCallback();
    ReconfigurationCallback(const ReconfigurationCallback &) = delete;
    ReconfigurationCallback &operator=(const ReconfigurationCallback &) = delete;

private:
    const std::uintptr_t m_token; ///< what the system knows this by
};

} // namespace Panorel::Mac
