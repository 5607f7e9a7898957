#include "PanorelX11/Displays/Edid.h"

#include "Fuzz/Fuzz.h"

#include <algorithm>
#include <numeric>

using namespace Panorel::Fuzz;
using Panorel::X11::Edid;

namespace {

/// With the checksum put right, which no search would come upon.
QByteArray sealed(QByteArray bytes)
{
    constexpr qsizetype checksum = 127;
    if (bytes.size() > checksum)
        bytes[checksum] = char(-std::accumulate(bytes.begin(), bytes.begin() + checksum, 0));
    return bytes;
}

void check(const QByteArray &input)
{
    constexpr qsizetype blockSize = 128;
    Edid::parse(input);
    const QByteArray bytes = sealed(input);
    const auto edid = Edid::parse(bytes);
    if (!edid)
        return;
    const auto base = Edid::parse(bytes.left(blockSize));
    require(base && base->serial == edid->serial && base->name == edid->name,
            "what follows the base block plays no part");
    require(edid->name.size() <= 13 && edid->name == edid->name.trimmed(),
            "a name is one line of the block");
    require(std::ranges::all_of(edid->name, [](QChar each) { return each.isPrint(); }),
            "a name can be shown");
    for (qsizetype i = 0; i < blockSize; ++i) {
        QByteArray damaged = bytes;
        damaged[i] = char(damaged[i] ^ 0x10);
        require(!Edid::parse(damaged), "a damaged block tells nothing");
    }
}

const Target target("Edid", check);

} // namespace
