#include "Core/Samples.h"
#include "Core/Sizes.h"
#include "Panorel/InMemoryProgram.h"

namespace Panorel {

namespace {

/// The whole program with two windows on the desk, and that much in its files.
struct StoredProgram {
    StoredProgram(int desks, int scenes, int triggers)
    {
        const auto write = [&](const char *file, const QByteArray &bytes) {
            program.dir.write(QString::fromLatin1(file), bytes);
        };
        program.controller.reset();
        const PanorelJSON::Encoder encoder;
        if (desks > 0) {
            const LayoutFile layouts = Samples::desks(desks);
            write("layouts.json", encoder.encode(layouts));
            std::vector<AppPlacement> placements;
            for (const Layout &layout : layouts.layouts)
                placements.push_back(
                    {layout.configID, layout.windows.front().bundleID, layout.windows});
            write("placements.json", encoder.encode(placements));
        }
        write("scenes.json", encoder.encode(Samples::scenes(scenes)));
        write("triggers.json", encoder.encode(Samples::triggers(triggers)));
        program.start();
    }

    Program program;
};

void loadLayouts(benchmark::State &state)
{
    TestDataDir dir;
    dir.write(QStringLiteral("layouts.json"),
              PanorelJSON::encoder().encode(Samples::desks(int(state.range(0)))));
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutStore(dir.log, dir.clock));
}

void lookUp(benchmark::State &state)
{
    TestDataDir dir;
    const int count = int(state.range(0));
    dir.write(QStringLiteral("layouts.json"), PanorelJSON::encoder().encode(Samples::desks(count)));
    const LayoutStore store(dir.log, dir.clock);
    const QString last = Samples::deskID(count - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(store.layoutFor(last));
}

void learnUnchanged(benchmark::State &state)
{
    StoredProgram stored(int(state.range(0)), 0, 0);
    for (auto _ : state)
        stored.program.controller->learn();
}

void learnOneMoved(benchmark::State &state)
{
    StoredProgram stored(int(state.range(0)), 0, 0);
    double x = 0;
    for (auto _ : state) {
        stored.program.desktop.window(stored.program.mail).frame = {x = 1 - x, 0, 400, 300};
        stored.program.controller->learn();
    }
}

void refreshPanelByDesks(benchmark::State &state)
{
    StoredProgram stored(int(state.range(0)), 0, 0);
    for (auto _ : state)
        stored.program.controller->refreshPanel();
}

void refreshPanelByScenes(benchmark::State &state)
{
    StoredProgram stored(1, 0, 0);
    Program &program = stored.program;
    SceneFile file = Samples::scenes(int(state.range(0)));
    for (SceneRecord &scene : file.scenes)
        scene.configID = program.watcher->configID();
    program.controller.reset();
    program.dir.write(QStringLiteral("scenes.json"), PanorelJSON::encoder().encode(file));
    program.start();
    for (auto _ : state)
        program.controller->refreshPanel();
}

void loadScenes(benchmark::State &state)
{
    TestDataDir dir;
    dir.write(QStringLiteral("scenes.json"),
              PanorelJSON::encoder().encode(Samples::scenes(int(state.range(0)))));
    for (auto _ : state)
        benchmark::DoNotOptimize(SceneStore(dir.log, dir.clock));
}

void updateScene(benchmark::State &state)
{
    TestDataDir dir;
    dir.write(QStringLiteral("scenes.json"),
              PanorelJSON::encoder().encode(Samples::scenes(int(state.range(0)))));
    SceneStore store(dir.log, dir.clock);
    SceneRecord last = store.allScenes().back();
    for (auto _ : state) {
        last.opensMissingApps = !last.opensMissingApps;
        store.update(last);
    }
}

void reloadKeys(benchmark::State &state)
{
    StoredProgram stored(1, int(state.range(0)), 0);
    for (auto _ : state)
        stored.program.controller->reloadHotKeys();
}

void loadTriggers(benchmark::State &state)
{
    TestDataDir dir;
    dir.write(QStringLiteral("triggers.json"),
              PanorelJSON::encoder().encode(Samples::triggers(int(state.range(0)))));
    for (auto _ : state)
        benchmark::DoNotOptimize(TriggerStore(dir.log, dir.clock));
}

void planNextFire(benchmark::State &state)
{
    StoredProgram stored(1, 1, int(state.range(0)));
    for (auto _ : state)
        stored.program.controller->timeTriggers().reload();
}

/// As many meetings within the hour as there are triggers for them, with none of them reached.
void lookAtMeetings(benchmark::State &state)
{
    const int count = int(state.range(0));
    StoredProgram stored(1, 1, 10);
    Program &program = stored.program;
    for (int i = 0; i < count; ++i) {
        CalendarEvent event;
        event.identifier = QStringLiteral("event %1").arg(i);
        event.title = QStringLiteral("Meeting %1").arg(i);
        event.notes = QStringLiteral("Agenda and minutes are in the usual folder, see you there.");
        event.start = program.dir.clock.now() + std::chrono::minutes(30);
        program.platform.events.all.push_back(event);
    }
    for (auto _ : state)
        program.controller->calendarMonitor().tick();
}

/// That many restores have been counted, on as many desks.
void countRestore(benchmark::State &state)
{
    TestDataDir dir;
    UsageData data;
    data.firstRecordedAt = dir.clock.now();
    for (int i = 0; i < state.range(0); ++i)
        data.deskIDs.push_back(Samples::deskID(i));
    dir.write(QStringLiteral("usage.json"), PanorelJSON::encoder().encode(data));
    UsageStore loaded(dir.log, dir.clock);
    for (auto _ : state)
        loaded.record(UsageEvents::Restore{2});
}

BENCHMARK(loadLayouts)->Name("desks/layouts loaded")->Apply(twoDecades);
BENCHMARK(lookUp)->Name("desks/layout looked up")->Apply(decades);
BENCHMARK(learnUnchanged)->Name("desks/learn, nothing changed")->Apply(twoDecades);
BENCHMARK(learnOneMoved)->Name("desks/learn, one window moved")->Apply(twoDecades);
BENCHMARK(refreshPanelByDesks)->Name("desks/panel refreshed")->Apply(twoDecades);
BENCHMARK(countRestore)->Name("desks/restore counted")->Apply(decades);
BENCHMARK(loadScenes)->Name("scenes/loaded")->Apply(twoDecades);
BENCHMARK(updateScene)->Name("scenes/one changed")->Apply(twoDecades);
BENCHMARK(refreshPanelByScenes)->Name("scenes/panel refreshed")->Apply(twoDecades);
BENCHMARK(reloadKeys)->Name("scenes/hot keys reloaded")->Apply(twoDecades);
BENCHMARK(loadTriggers)->Name("triggers/loaded")->Apply(decades);
BENCHMARK(planNextFire)->Name("triggers/next fire planned")->Apply(decades);
BENCHMARK(lookAtMeetings)->Name("events/looked at for meetings")->Apply(decades);

} // namespace

} // namespace Panorel
