#include "PanorelX11/Session/WallClockAlarm.h"

#include "PanorelCore/Files/AppLog.h"

#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <cstring>
#include <sys/timerfd.h>
#include <unistd.h>

namespace Panorel::X11 {

namespace {

class Alarm final : public ScheduledTask {
public:
    Alarm(Instant when, std::function<void()> action, AppLog &log,
          std::chrono::milliseconds askAgainAfter)
        : m_when(when), m_action(std::move(action))
    {
        if (start())
            return;
        log.log(QStringLiteral("alarm: the system refuses a timer, asking again: ")
                + QString::fromLocal8Bit(std::strerror(errno)));
        QObject::connect(&m_again, &QTimer::timeout, &m_again, [this] {
            if (start())
                m_again.stop();
        });
        m_again.start(askAgainAfter);
    }
    ~Alarm() override
    {
        if (m_descriptor < 0)
            return;
        // The action may destroy the alarm from within the notifier's own signal.
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
        close(m_descriptor);
    }
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;

private:
    bool start()
    {
        m_descriptor = timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK);
        if (m_descriptor < 0)
            return false;
        arm();
        m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                         [this] { fire(); });
        return true;
    }
    void arm()
    {
        using namespace std::chrono;
        // Nothing before the epoch is a time to the kernel, and zero would disarm the timer.
        const auto sinceEpoch = std::max(m_when.time_since_epoch(), milliseconds(1));
        const auto whole = floor<seconds>(sinceEpoch);
        itimerspec spec{};
        spec.it_value.tv_sec = whole.count();
        spec.it_value.tv_nsec = nanoseconds(sinceEpoch - whole).count();
        // Cancelled by a clock that is set, it becomes readable like one that is due.
        timerfd_settime(m_descriptor, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &spec, nullptr);
    }
    void fire()
    {
        m_notifier->setEnabled(false);
        const auto action = std::move(m_action);
        action();
    }

    const Instant m_when;
    std::function<void()> m_action;
    int m_descriptor = -1; ///< -1: none to be had so far
    QTimer m_again;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace

std::unique_ptr<ScheduledTask> WallClockAlarm::runAt(Instant when, std::function<void()> action)
{
    return std::make_unique<Alarm>(when, std::move(action), m_log, m_askAgainAfter);
}

} // namespace Panorel::X11
