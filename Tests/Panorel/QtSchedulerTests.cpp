#include "Panorel/QtScheduler.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

class QtSchedulerTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTaskRunsOnceAndNeverEarlyUnlessItIsDestroyed()
    {
        QtScheduler scheduler;
        QElapsedTimer timer;
        timer.start();
        std::vector<qint64> runs;
        const auto task = scheduler.runAfter(40ms, [&] { runs.push_back(timer.elapsed()); });
        auto destroyed = scheduler.runAfter(0ms, [&] { runs.push_back(0); });
        destroyed.reset();
        QVERIFY(runs.empty());
        QTRY_COMPARE(runs.size(), 1u);
        QVERIFY(runs[0] >= 40);
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
