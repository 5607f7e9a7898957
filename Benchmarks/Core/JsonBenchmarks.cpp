#include "Core/Samples.h"
#include "Core/Sizes.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "Support/TestDataDir.h"

#include <QJsonDocument>

namespace Panorel {

namespace {

const QString layoutsFile = QStringLiteral("layouts.json");

LayoutFile oneDesk(benchmark::State &state)
{
    return {{}, {Samples::layout(Samples::deskID(0), int(state.range(0)))}};
}

void encode(benchmark::State &state)
{
    const LayoutFile file = oneDesk(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(PanorelJSON::encoder().encode(file));
}

void decode(benchmark::State &state)
{
    const QByteArray bytes = PanorelJSON::encoder().encode(oneDesk(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(PanorelJSON::decoder().decode<LayoutFile>(bytes));
}

/// What the same bytes cost where nobody builds them from records, or looks at them.
void print(benchmark::State &state)
{
    const auto document = QJsonDocument::fromJson(PanorelJSON::encoder().encode(oneDesk(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toJson(QJsonDocument::Indented));
}

void parse(benchmark::State &state)
{
    const QByteArray bytes = PanorelJSON::encoder().encode(oneDesk(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(bytes));
}

void load(benchmark::State &state)
{
    TestDataDir dir;
    dir.write(layoutsFile, PanorelJSON::encoder().encode(oneDesk(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutStore(dir.log, dir.clock));
}

void save(benchmark::State &state)
{
    TestDataDir dir;
    LayoutStore store(dir.log, dir.clock);
    const Layout layout = oneDesk(state).layouts.front();
    for (auto _ : state)
        store.saveLearned(layout);
}

BENCHMARK(encode)->Name("windows/layout encoded")->Apply(decades);
BENCHMARK(print)->Name("windows/layout encoded, QJsonDocument alone")->Apply(decades);
BENCHMARK(decode)->Name("windows/layout decoded")->Apply(decades);
BENCHMARK(parse)->Name("windows/layout decoded, QJsonDocument alone")->Apply(decades);
BENCHMARK(load)->Name("windows/layout loaded")->Apply(decades);
BENCHMARK(save)->Name("windows/layout saved")->Apply(decades);

} // namespace

} // namespace Panorel
