#include "PanorelX11/Session/WallClockAlarm.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <system_error>
#include <unistd.h>

namespace Panorel::X11 {

namespace {

class Alarm final : public ScheduledTask {
public:
    Alarm(Instant when, std::function<void()> action)
        : m_descriptor(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
          m_action(std::move(action))
    {
        if (m_descriptor < 0)
            throw std::system_error(errno, std::generic_category(), "timerfd_create");
        arm(when);
        m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                         [this] { fire(); });
    }
    ~Alarm() override
    {
        // The action may destroy the alarm from within the notifier's own signal.
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
        close(m_descriptor);
    }
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;

private:
    void arm(Instant when)
    {
        using namespace std::chrono;
        // Nothing before the epoch is a time to the kernel, and zero would disarm the timer.
        const auto sinceEpoch = std::max(when.time_since_epoch(), milliseconds(1));
        const auto whole = floor<seconds>(sinceEpoch);
        itimerspec spec{};
        spec.it_value.tv_sec = whole.count();
        spec.it_value.tv_nsec = nanoseconds(sinceEpoch - whole).count();
        timerfd_settime(m_descriptor, TFD_TIMER_ABSTIME, &spec, nullptr);
    }
    void fire()
    {
        m_notifier->setEnabled(false);
        const auto action = std::move(m_action);
        action();
    }

    int m_descriptor;
    std::function<void()> m_action;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace

std::unique_ptr<ScheduledTask> WallClockAlarm::runAt(Instant when, std::function<void()> action)
{
    return std::make_unique<Alarm>(when, std::move(action));
}

} // namespace Panorel::X11
