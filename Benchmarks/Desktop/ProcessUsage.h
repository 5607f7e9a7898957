#pragma once

#include <QtGlobal>

namespace Panorel::Bench {

/// What a process has used up since it started, all its threads together. All zero for one that is
/// not there.
struct ProcessUsage {
    double processorMs = 0;
    double wakeUps = 0; ///< how often a thread went to sleep by itself

    static ProcessUsage of(qint64 process);
};

/// What it holds now.
struct ProcessMemory {
    double residentMB = 0;
    double proportionalMB = 0; ///< of shared pages its share

    static ProcessMemory of(qint64 process);
};

} // namespace Panorel::Bench
