#include "Core/Sizes.h"
#include "PanorelCore/Files/AppLog.h"
#include "Support/TestDataDir.h"

#include <algorithm>
#include <thread>

namespace Panorel {

namespace {

using namespace std::chrono_literals;
using Delay = std::chrono::nanoseconds;

const QString line = QStringLiteral("learned layout: 12 windows for Desk setup [Default]");

/// What the caller waits for, in microseconds: no mean would show the one line that stalls.
void report(benchmark::State &state, std::vector<Delay> delays)
{
    std::ranges::sort(delays);
    const auto at = [&](double share) {
        const auto place = std::min(delays.size() - 1, std::size_t(share * double(delays.size())));
        return std::chrono::duration<double, std::micro>(delays[place]).count();
    };
    state.counters["p50_us"] = at(0.5);
    state.counters["p99_us"] = at(0.99);
    state.counters["p99.9_us"] = at(0.999);
    state.counters["max_us"] = at(1);
}

/// That many lines, with a pause between each two; then the time until all are in the file.
void log(benchmark::State &state, int lines, std::chrono::microseconds pause)
{
    const SystemClock clock;
    std::vector<Delay> delays;
    for (auto _ : state) {
        TestDataDir dir;
        AppLog log(clock);
        auto next = std::chrono::steady_clock::now();
        for (int i = 0; i < lines; ++i) {
            const auto start = std::chrono::steady_clock::now();
            log.log(line);
            delays.push_back(std::chrono::steady_clock::now() - start);
            next += pause;
            if (pause > 0us)
                std::this_thread::sleep_until(next);
        }
        log.flush();
    }
    state.SetItemsProcessed(state.iterations() * lines);
    report(state, std::move(delays));
}

void burst(benchmark::State &state)
{
    log(state, int(state.range(0)), 0us);
}

void steady(benchmark::State &state)
{
    log(state, int(state.range(0)), 1ms);
}

/// One line into a log of so many lines.
void append(benchmark::State &state)
{
    TestDataDir dir;
    const SystemClock clock;
    AppLog log(clock);
    dir.write(QStringLiteral("app.log"),
              ("[2024-05-13T09:20:00Z] " + line.toUtf8() + '\n').repeated(state.range(0)));
    for (auto _ : state) {
        log.log(line);
        log.flush();
    }
}

BENCHMARK(burst)->Name("log/burst")->Arg(1'000)->Arg(10'000)->Arg(100'000)->UseRealTime();
BENCHMARK(steady)->Name("log/a thousand a second")->Arg(5'000)->Iterations(1)->UseRealTime();
BENCHMARK(append)
    ->Name("log/line appended")
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->UseRealTime();

} // namespace

} // namespace Panorel
