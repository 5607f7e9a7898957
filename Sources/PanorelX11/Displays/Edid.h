#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace Panorel::X11 {

/// What a display says about itself in the base block of its EDID.
struct Edid {
    std::uint16_t vendor = 0; ///< three letters of five bits each, as on the wire
    std::uint16_t model = 0;
    std::uint32_t serial = 0; ///< 0 where the maker gave none
    QString name;             ///< empty where the display has none

    /// Absent unless the bytes begin with a whole base block: right header, right checksum.
    /// Extension blocks, missing ones as well, play no part.
    static std::optional<Edid> parse(const QByteArray &bytes);
};

} // namespace Panorel::X11
