#include "Core/IndexedDesktop.h"
#include "Core/Samples.h"
#include "Core/Sizes.h"
#include "Panorel/DeskLearner.h"
#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelEngine/Launch/LaunchPlacement.h"
#include "PanorelEngine/Stash/StashController.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

namespace Panorel {

namespace {

using namespace std::chrono_literals;

/// The engines on a desktop of that many windows, the stores empty.
struct Desk {
    explicit Desk(int windows) : records(Samples::windows(windows)), desktop(records)
    {
        screens.plug(QStringLiteral("Left"), {0, 0, 1920, 1080}, 1);
        screens.plug(QStringLiteral("Right"), {1920, 0, 2560, 1440}, 2);
        watcher.start();
    }

    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    std::vector<WindowRecord> records;
    IndexedDesktop desktop;
    InMemoryScreens screens;
    DisplayWatcher watcher{screens, scheduler, dir.log};
    LayoutStore layouts{dir.log, dir.clock};
    AppRuleStore rules{dir.log, dir.clock};
    PlacementMemory placements{dir.log, dir.clock};
    UsageStore usage{dir.log, dir.clock};
    WindowSnapshotter snapshotter{desktop, desktop, desktop};
    RestoreEngine engine{rules, snapshotter, desktop, dir.log, dir.clock};
    DeskLearner learner{snapshotter, watcher, layouts, placements, usage, dir.clock};
};

void snapshot(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(desk.snapshotter.snapshot(desk.watcher.displays()));
}

void liveWindows(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(desk.snapshotter.liveWindows());
}

void restore(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    const Layout layout = desk.learner.capture(QStringLiteral("Default"));
    for (auto _ : state)
        benchmark::DoNotOptimize(desk.engine.apply(layout, true));
}

/// Every application has a rule, as a user has who once set one for all.
void restoreByRules(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    const Layout layout = desk.learner.capture(QStringLiteral("Default"));
    std::vector<AppRule> rules;
    for (int i = 0; i * Samples::windowsEach < state.range(0); ++i)
        rules.push_back({Samples::applicationID(i), false, true});
    desk.dir.write(QStringLiteral("rules.json"), PanorelJSON::encoder().encode(rules));
    AppRuleStore store(desk.dir.log, desk.dir.clock);
    RestoreEngine engine(store, desk.snapshotter, desk.desktop, desk.dir.log, desk.dir.clock);
    for (auto _ : state)
        benchmark::DoNotOptimize(engine.apply(layout, true));
}

void learnUnchanged(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    desk.learner.learn();
    for (auto _ : state)
        benchmark::DoNotOptimize(desk.learner.learn());
}

void learnOneMoved(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    desk.learner.learn();
    const auto window = desk.desktop.windows(desk.desktop.runningApplications().back().pid).back();
    double x = 0;
    for (auto _ : state) {
        desk.desktop.apply(window.element, Point{x = 1 - x, 0}, {});
        benchmark::DoNotOptimize(desk.learner.learn());
    }
}

void stashAndBack(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    StashController stash(desk.engine, desk.usage, desk.snapshotter, desk.desktop, desk.desktop,
                          desk.scheduler, desk.dir.log, desk.dir.clock,
                          [&](const QString &id) { return desk.layouts.layoutFor(id); });
    for (auto _ : state) {
        for (int time = 0; time < 2; ++time)
            stash.toggle(desk.watcher.displays(), desk.watcher.configID(), true);
        desk.scheduler.advance(1s);
    }
}

void placements(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    desk.placements.remember(Samples::deskID(0), desk.records);
    for (auto _ : state)
        desk.placements.remember(Samples::deskID(0), desk.records);
}

void launchPlacement(benchmark::State &state)
{
    Desk desk(int(state.range(0)));
    desk.learner.learn();
    LaunchPlacement placement(
        desk.layouts, desk.rules, desk.placements, desk.desktop, desk.desktop, desk.scheduler,
        desk.dir.log, [&] { return desk.watcher.configID(); }, [] { return true; });
    const RunningApplication last = desk.desktop.runningApplications().back();
    for (auto _ : state)
        placement.place(*last.bundleID, last.pid, 0);
}

BENCHMARK(snapshot)->Name("windows/snapshot")->Apply(decades);
BENCHMARK(liveWindows)->Name("windows/live windows")->Apply(decades);
BENCHMARK(restore)->Name("windows/restore")->Apply(decades);
BENCHMARK(restoreByRules)->Name("windows/restore, a rule for each application")->Apply(decades);
BENCHMARK(learnUnchanged)->Name("windows/learn, nothing changed")->Apply(decades);
BENCHMARK(learnOneMoved)->Name("windows/learn, one moved")->Apply(decades);
BENCHMARK(stashAndBack)->Name("windows/stash and back")->Apply(decades);
BENCHMARK(placements)->Name("windows/placements, nothing changed")->Apply(decades);
BENCHMARK(launchPlacement)->Name("windows/place a launched application")->Apply(decades);

} // namespace

} // namespace Panorel
