#pragma once

#include <QByteArray>

#include <cstdint>

namespace Panorel::Desktop {

/// What a display says of itself.
struct EdidFields {
    char vendor[4] = "PNR"; ///< three capital letters
    std::uint16_t model = 0;
    std::uint32_t serial = 0;
    QByteArray name; ///< at most 13 characters; empty: the display does not name itself
};

/// A valid EDID 1.4 base block of 128 bytes, checksum included.
QByteArray buildEdid(const EdidFields &fields);

} // namespace Panorel::Desktop
