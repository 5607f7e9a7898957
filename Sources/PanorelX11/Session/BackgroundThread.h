#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace Panorel::X11 {

/// Runs jobs one after the other on one thread of its own, which begins with the first of them. A
/// job may hang: ending waits for it a while only and then leaves the thread behind, so jobs must
/// not refer to what may be gone by then.
class BackgroundThread {
public:
    BackgroundThread();
    /// Runs no job that has not begun.
    ~BackgroundThread();
    BackgroundThread(const BackgroundThread &) = delete;
    BackgroundThread &operator=(const BackgroundThread &) = delete;

    void run(std::function<void()> job);

    /// Runs the job as the last one, when those before it have ended, and forgets all others.
    /// Returns when it has run, or after the time.
    void end(std::function<void()> job, std::chrono::milliseconds patience);

private:
    struct Jobs;

    std::shared_ptr<Jobs> m_jobs;
    std::thread m_thread;
};

} // namespace Panorel::X11
