#include "PanorelX11/Session/BackgroundThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace Panorel::X11 {

struct BackgroundThread::Jobs {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> waiting;
    bool isEnding = false;
    bool hasEnded = false;

    void runAll()
    {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return isEnding || !waiting.empty(); });
            if (waiting.empty())
                break;
            auto job = std::move(waiting.front());
            waiting.pop_front();
            lock.unlock();
            job();
            job = nullptr; // what it holds goes here, unlocked
            lock.lock();
        }
        hasEnded = true;
        changed.notify_all();
    }
};

BackgroundThread::BackgroundThread() : m_jobs(std::make_shared<Jobs>()) {}

BackgroundThread::~BackgroundThread()
{
    end([] {}, std::chrono::seconds(1));
}

void BackgroundThread::run(std::function<void()> job)
{
    {
        const std::scoped_lock lock(m_jobs->mutex);
        if (m_jobs->isEnding)
            return;
        m_jobs->waiting.push_back(std::move(job));
    }
    m_jobs->changed.notify_all();
    if (!m_thread.joinable())
        m_thread = std::thread([jobs = m_jobs] { jobs->runAll(); });
}

void BackgroundThread::end(std::function<void()> job, std::chrono::milliseconds patience)
{
    if (!m_thread.joinable())
        return;
    std::unique_lock lock(m_jobs->mutex);
    m_jobs->isEnding = true;
    m_jobs->waiting.clear();
    m_jobs->waiting.push_back(std::move(job));
    m_jobs->changed.notify_all();
    const bool ended =
        m_jobs->changed.wait_for(lock, patience, [this] { return m_jobs->hasEnded; });
    lock.unlock();
    if (ended)
        m_thread.join();
    else
        m_thread.detach();
}

} // namespace Panorel::X11
