#include "Desktop/BenchDesk.h"
#include "Desktop/RequestCount.h"
#include "Desktop/Results.h"
#include "Panorel/DeskLearner.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/UsageStore.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/stat.h>
#include <thread>

namespace Panorel::Bench {

namespace {

/// What the program does every 90 seconds, with what it needs for that.
struct Learner {
    TestDataDir data;
    SystemClock clock;
    FakeScheduler scheduler{data.clock};
    std::unique_ptr<Platform> platform = makePlatform(data.log, clock);
    WindowSnapshotter snapshotter{platform->accessibility(), platform->windowList(),
                                  platform->workspace()};
    DisplayWatcher watcher{platform->screens(), scheduler, data.log};
    LayoutStore layouts{data.log, clock};
    PlacementMemory placements{data.log, clock};
    UsageStore usage{data.log, clock};
    DeskLearner learner{snapshotter, watcher, layouts, placements, usage, clock};
};

/// Each file with its identity, size and time of change: whatever is written shows.
using Files = std::map<QString, std::array<qint64, 4>>;

Files filesOf(const Learner &learner)
{
    Files files;
    for (const QString &name : learner.data.names()) {
        struct stat facts {};
        if (stat(QFile::encodeName(learner.data.path(name)).constData(), &facts) == 0)
            files[name] = {qint64(facts.st_ino), facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec,
                           facts.st_size};
    }
    return files;
}

/// At least: of a file that has changed, all of it.
qint64 bytesWritten(const Files &before, const Files &after)
{
    qint64 bytes = 0;
    for (const auto &[name, facts] : after) {
        const auto known = before.find(name);
        if (known == before.end() || known->second != facts)
            bytes += facts.back();
    }
    return bytes;
}

void measure(Results &results, const QString &manager, int count, int rounds)
{
    BenchDesk desk(manager, count);
    Learner learner;
    learner.watcher.start();
    if (!learner.learner.learn())
        qFatal("nothing learned");
    learner.data.log.flush();
    const Files before = filesOf(learner);
    if (bytesWritten({}, before) < count * 100)
        qFatal("the learned desk was not written");

    for (int round = -2; round < rounds * 2; ++round) { // some to warm up
        const auto add = [&](const char *way, const char *measure, double value) {
            if (round >= 0)
                results.add({QStringLiteral("learn"), manager, count, QLatin1String(way),
                             QLatin1String(measure)},
                            value);
        };
        const auto time = [&](const char *way, const auto &work) {
            // A pass takes what was read a moment before, and there was none for 90 seconds.
            std::this_thread::sleep_for(std::chrono::milliseconds(150));
            QCoreApplication::processEvents();
            const RequestCount sent = RequestCount::now();
            const TimePoint start = std::chrono::steady_clock::now();
            work();
            const TimePoint end = std::chrono::steady_clock::now();
            const RequestCount now = RequestCount::now() - sent;
            add(way, "pass ms", BenchDesk::milliseconds(start, end));
            add(way, "requests", double(now.requests));
            add(way, "round trips", double(now.roundTrips));
        };
        time("panorel", [&] {
            if (learner.learner.learn())
                qFatal("the desk has changed");
        });
        time("floor", [&] { desk.raw.readEverything(); });
    }
    learner.data.log.flush();
    results.add({QStringLiteral("learn"), manager, count, QStringLiteral("panorel"),
                 QStringLiteral("bytes written")},
                double(bytesWritten(before, filesOf(learner))));
}

} // namespace

void measureLearn(Results &results, const Selection &selection)
{
    selection.forEachDesk("learn", [&](const QString &manager, int windows) {
        measure(results, manager, windows, selection.rounds);
    });
}

} // namespace Panorel::Bench
