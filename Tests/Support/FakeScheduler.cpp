#include "Support/FakeScheduler.h"

namespace Panorel {

FakeScheduler::Task::Task(FakeScheduler &scheduler, std::chrono::milliseconds delay,
                          std::chrono::milliseconds every, std::function<void()> what)
    : due(scheduler.m_clock.now() + delay), interval(every), action(std::move(what)),
      m_scheduler(scheduler)
{
    scheduler.m_tasks.push_back(this);
}

void FakeScheduler::advance(std::chrono::milliseconds by)
{
    const Instant end = m_clock.now() + by;
    for (;;) {
        const auto next = std::ranges::min_element(m_tasks, {}, &Task::due);
        if (next == m_tasks.end() || (*next)->due > end)
            break;
        Task &task = **next;
        m_clock.set(std::max(m_clock.now(), task.due)); // late, where the test moved the clock
        run(task);
    }
    m_clock.set(end);
}

std::vector<Instant> FakeScheduler::due() const
{
    std::vector<Instant> moments;
    std::ranges::transform(m_tasks, std::back_inserter(moments), &Task::due);
    return moments;
}

void FakeScheduler::run(Task &task)
{
    const auto action = task.action; // may destroy its own task
    task.due = task.interval.count() > 0 ? task.due + task.interval : Instant::max();
    action();
}

} // namespace Panorel
