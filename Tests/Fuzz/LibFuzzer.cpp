#include "Fuzz/Fuzz.h"

#include <cstdint>

/// What libFuzzer calls, in a program of one target. A broken promise is an exception that nobody
/// catches, which it takes for a crash.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    Panorel::Fuzz::targets.front()->check(input);
    return 0;
}
