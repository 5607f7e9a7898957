#include "Panorel/QtScheduler.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

class QtSchedulerTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTaskRunsOnceAndNeverEarly()
    {
        QtScheduler scheduler;
        QElapsedTimer timer;
        timer.start();
        std::vector<qint64> runs;
        const auto task = scheduler.runAfter(40ms, [&] { runs.push_back(timer.elapsed()); });
        QVERIFY(runs.empty());
        QTRY_COMPARE(runs.size(), 1u);
        QVERIFY(runs[0] >= 40);
    }

    void aDestroyedTaskDoesNotRun()
    {
        QtScheduler scheduler;
        bool cancelledRan = false;
        bool laterRan = false;
        auto cancelled = scheduler.runAfter(0ms, [&] { cancelledRan = true; });
        const auto later = scheduler.runAfter(1ms, [&] { laterRan = true; });
        cancelled.reset();
        QTRY_VERIFY(laterRan);
        QVERIFY(!cancelledRan);
    }

    void aRepeatingTaskMayEndItself()
    {
        QtScheduler scheduler;
        int runs = 0;
        std::unique_ptr<ScheduledTask> task;
        task = scheduler.repeat(1ms, [&] {
            if (++runs == 3)
                task.reset();
        });
        QTRY_VERIFY(!task);
        bool laterRan = false;
        const auto later = scheduler.runAfter(10ms, [&] { laterRan = true; });
        QTRY_VERIFY(laterRan);
        QCOMPARE(runs, 3);
    }
};

QTEST_GUILESS_MAIN(QtSchedulerTests)
#include "QtSchedulerTests.moc"
