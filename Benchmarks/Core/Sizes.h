#pragma once

#include <benchmark/benchmark.h>

namespace Panorel {

/// Three decades, so that what grows too fast shows. A benchmark's name ends with its size:
/// growth.py works the exponents out from that.
inline void decades(benchmark::internal::Benchmark *benchmark)
{
    benchmark->RangeMultiplier(10)->Range(10, 10'000)->UseRealTime();
}

/// For what nobody has ten thousand of, and what takes long to prepare.
inline void twoDecades(benchmark::internal::Benchmark *benchmark)
{
    benchmark->RangeMultiplier(10)->Range(10, 1'000)->UseRealTime();
}

} // namespace Panorel
