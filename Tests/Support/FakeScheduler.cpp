#include "Support/FakeScheduler.h"

namespace Panorel {

class FakeScheduler::Task final : public ScheduledTask {
public:
    Task(FakeScheduler &scheduler, const Entry *entry) : m_scheduler(scheduler), m_entry(entry) {}
    ~Task() override
    {
        m_scheduler.m_entries.remove_if([this](const Entry &entry) { return &entry == m_entry; });
    }
    Task(const Task &) = delete;
    Task &operator=(const Task &) = delete;

private:
    FakeScheduler &m_scheduler;
    const Entry *m_entry;
};

std::unique_ptr<ScheduledTask> FakeScheduler::runAfter(std::chrono::milliseconds delay,
                                                       std::function<void()> action)
{
    return add({m_clock.now() + delay, std::chrono::milliseconds(0), std::move(action)});
}

std::unique_ptr<ScheduledTask> FakeScheduler::repeat(std::chrono::milliseconds interval,
                                                     std::function<void()> action)
{
    return add({m_clock.now() + interval, interval, std::move(action)});
}

std::unique_ptr<ScheduledTask> FakeScheduler::add(const Entry &entry)
{
    m_entries.push_back(entry);
    return std::make_unique<Task>(*this, &m_entries.back());
}

void FakeScheduler::advance(std::chrono::milliseconds by)
{
    const Instant end = m_clock.now() + by;
    for (;;) {
        const auto next =
            std::min_element(m_entries.begin(), m_entries.end(),
                             [](const Entry &a, const Entry &b) { return a.due < b.due; });
        if (next == m_entries.end() || next->due > end)
            break;
        m_clock.set(next->due);
        const auto action = next->action; // may remove its own entry
        next->due = next->interval.count() > 0 ? next->due + next->interval : Instant::max();
        action();
    }
    m_clock.set(end);
}

} // namespace Panorel
