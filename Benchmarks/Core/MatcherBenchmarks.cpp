#include "Core/Samples.h"
#include "Core/Sizes.h"

namespace Panorel {

namespace {

using Records = std::vector<WindowRecord>;

void match(benchmark::State &state, const Records &records, const std::vector<LiveWindow> &live)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(WindowMatcher::match(records, live));
}

/// All of one application, with titles and sizes made from their numbers.
Records ofOneApplication(int count, const std::function<QString(int)> &title)
{
    Records records = Samples::windows(count);
    for (int i = 0; i < count; ++i) {
        records[std::size_t(i)].bundleID = Samples::applicationID(0);
        records[std::size_t(i)].title = title(i);
    }
    return records;
}

/// What is live stands in the opposite order, so that the first look is never lucky.
std::vector<LiveWindow> reversed(const Records &records)
{
    return Samples::live({records.rbegin(), records.rend()});
}

void distinctTitles(benchmark::State &state)
{
    const Records records = ofOneApplication(
        int(state.range(0)), [](int i) { return QStringLiteral("Document %1").arg(i); });
    match(state, records, reversed(records));
}

void manyApplications(benchmark::State &state)
{
    const Records records = Samples::windows(int(state.range(0)));
    match(state, records, reversed(records));
}

void equalTitles(benchmark::State &state)
{
    const Records records =
        ofOneApplication(int(state.range(0)), [](int) { return QStringLiteral("Terminal"); });
    match(state, records, reversed(records));
}

/// Each title has grown since: "Document 7" is now "Document 7 - edited".
void sharedPrefixes(benchmark::State &state)
{
    const Records records = ofOneApplication(
        int(state.range(0)), [](int i) { return QStringLiteral("Document %1").arg(i); });
    Records now = records;
    for (WindowRecord &record : now)
        record.title += QStringLiteral(" - edited");
    match(state, records, reversed(now));
}

void nothingMatches(benchmark::State &state)
{
    const Records records = Samples::windows(int(state.range(0)));
    auto live = reversed(records);
    for (LiveWindow &window : live)
        window.bundleID.prepend(u'x');
    match(state, records, live);
}

/// No title is another's beginning, but to see that a comparison has to go to the very end.
void longCommonPrefixes(benchmark::State &state)
{
    const QString prefix(2'000, u'x');
    const int count = int(state.range(0));
    const Records records = ofOneApplication(
        count, [&](int i) { return prefix + QStringLiteral("%1").arg(i, 6, 10, QChar(u'0')); });
    const Records now = ofOneApplication(count, [&](int i) {
        return prefix + QStringLiteral("%1").arg(500'000 + i, 6, 10, QChar(u'0'));
    });
    match(state, records, reversed(now));
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(10)->Arg(100)->Arg(1'000)->Arg(3'000)->Arg(10'000)->UseRealTime();
}

BENCHMARK(distinctTitles)->Name("windows/match, distinct titles")->Apply(sizes);
BENCHMARK(manyApplications)->Name("windows/match, many applications")->Apply(sizes);
BENCHMARK(equalTitles)->Name("windows/match, equal titles")->Apply(sizes);
BENCHMARK(sharedPrefixes)->Name("windows/match, changed titles")->Apply(sizes);
BENCHMARK(nothingMatches)->Name("windows/match, nothing matches")->Apply(sizes);
BENCHMARK(longCommonPrefixes)->Name("windows/match, long common prefixes")->Apply(sizes);

} // namespace

} // namespace Panorel
