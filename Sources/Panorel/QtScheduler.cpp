#include "Panorel/QtScheduler.h"

#include <QTimer>

namespace Panorel {

namespace {

class TimerTask final : public ScheduledTask {
public:
    TimerTask(std::chrono::milliseconds delay, bool repeating, std::function<void()> action)
        : m_timer(new QTimer)
    {
        m_timer->setTimerType(Qt::PreciseTimer); // a coarse one may fire 5 % early
        m_timer->setSingleShot(!repeating);
        QObject::connect(m_timer, &QTimer::timeout, m_timer, std::move(action));
        m_timer->start(delay);
    }

    ~TimerTask() override
    {
        // The action may be the one that destroys the task, so the timer outlives its signal.
        m_timer->stop();
        m_timer->deleteLater();
    }

    TimerTask(const TimerTask &) = delete;
    TimerTask &operator=(const TimerTask &) = delete;

private:
    QTimer *m_timer;
};

} // namespace

std::unique_ptr<ScheduledTask> QtScheduler::runAfter(std::chrono::milliseconds delay,
                                                     std::function<void()> action)
{
    return std::make_unique<TimerTask>(delay, false, std::move(action));
}

std::unique_ptr<ScheduledTask> QtScheduler::repeat(std::chrono::milliseconds interval,
                                                   std::function<void()> action)
{
    return std::make_unique<TimerTask>(interval, true, std::move(action));
}

} // namespace Panorel
