#include "PanorelX11/Session/WallClockAlarm.h"
#include "Support/TestDataDir.h"

#include <QTest>

#include <sys/syscall.h>
#include <sys/timerfd.h>
#include <unistd.h>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

bool clockIsSet = false;

} // namespace

/// As the kernel's, but where the test says that the clock is set: a timer that is cancelled by
/// that becomes readable at once. Nobody but root may set the clock, and others live by it.
extern "C" int timerfd_settime(int file, int flags, const itimerspec *when, itimerspec *before)
{
    constexpr itimerspec now{{}, {0, 1}};
    const bool isCancelled = clockIsSet && (flags & TFD_TIMER_CANCEL_ON_SET);
    return int(syscall(SYS_timerfd_settime, file, isCancelled ? 0 : flags,
                       isCancelled ? &now : when, before));
}

class WallClockAlarmTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anAlarmComesOnceAndNeverEarly()
    {
        const SystemClock clock;
        const Instant now = clock.now();
        for (const Instant when :
             {now + 30ms, now - 5s, Instant(), Instant(-1500ms), Instant::min()}) {
            std::vector<Instant> runs;
            const auto task = m_alarm.runAt(when, [&] { runs.push_back(clock.now()); });
            QVERIFY(runs.empty());
            QTRY_COMPARE(runs.size(), 1u);
            QVERIFY(runs[0] >= when);
            waitForAnother(5ms);
            QCOMPARE(runs.size(), 1u);
        }
    }

    void aDestroyedOrDistantAlarmDoesNotComeAndOneMayEndItselfInItsAction()
    {
        int unwanted = 0;
        auto destroyed = m_alarm.runAt(SystemClock().now(), [&] { ++unwanted; });
        const auto distant = m_alarm.runAt(Instant::max(), [&] { ++unwanted; });
        QTest::qSleep(1); // the first one is due by now, and its owner takes it back
        destroyed.reset();
        std::unique_ptr<ScheduledTask> task;
        bool ended = false;
        task = m_alarm.runAt(SystemClock().now(), [&, kept = std::make_shared<int>(7)] {
            task.reset();
            ended = *kept == 7; // what the action holds outlives the task
        });
        QTRY_VERIFY(ended);
        waitForAnother(10ms);
        QCOMPARE(unwanted, 0);
    }

    void anAlarmComesAtOnceWhenTheClockIsSet()
    {
        clockIsSet = true;
        bool came = false;
        const auto task = m_alarm.runAt(SystemClock().now() + 24h, [&] { came = true; });
        QTRY_VERIFY(came);
        clockIsSet = false;
    }

private:
    void waitForAnother(std::chrono::milliseconds delay)
    {
        bool came = false;
        const auto task = m_alarm.runAt(SystemClock().now() + delay, [&] { came = true; });
        QTRY_VERIFY(came);
    }

    TestDataDir m_dir;
    X11::WallClockAlarm m_alarm{m_dir.log, 1ms};
};

QTEST_GUILESS_MAIN(WallClockAlarmTests)
#include "WallClockAlarmTests.moc"
