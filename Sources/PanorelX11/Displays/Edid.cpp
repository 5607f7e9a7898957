#include "PanorelX11/Displays/Edid.h"

#include <QtEndian>

#include <numeric>

namespace Panorel::X11 {

namespace {

constexpr qsizetype blockSize = 128;
constexpr qsizetype descriptorSize = 18;
constexpr qsizetype descriptorOffsets[] = {54, 72, 90, 108};

/// The name: up to 13 characters, ended by a line feed and padded with blanks.
QString displayName(const QByteArray &block)
{
    static const QByteArray nameTag("\0\0\0\xFC\0", 5);
    for (const qsizetype offset : descriptorOffsets) {
        const QByteArray descriptor = block.mid(offset, descriptorSize);
        if (!descriptor.startsWith(nameTag))
            continue;
        QString name;
        for (const char character : descriptor.mid(nameTag.size())) {
            if (character == '\n' || character == '\0')
                break;
            const bool printable = character >= 0x20 && character < 0x7F;
            name += printable ? QChar::fromLatin1(character) : QChar(QChar::ReplacementCharacter);
        }
        return name.trimmed();
    }
    return {};
}

} // namespace

std::optional<Edid> Edid::parse(const QByteArray &bytes)
{
    static const QByteArray header("\0\xFF\xFF\xFF\xFF\xFF\xFF\0", 8);
    const QByteArray block = bytes.left(blockSize);
    if (block.size() != blockSize || !block.startsWith(header))
        return {};
    const auto addByte = [](unsigned sum, char byte) { return sum + std::uint8_t(byte); };
    if (std::accumulate(block.begin(), block.end(), 0U, addByte) % 256 != 0)
        return {};
    Edid edid;
    edid.vendor = qFromBigEndian<std::uint16_t>(block.constData() + 8);
    edid.model = qFromLittleEndian<std::uint16_t>(block.constData() + 10);
    edid.serial = qFromLittleEndian<std::uint32_t>(block.constData() + 12);
    edid.name = displayName(block);
    return edid;
}

} // namespace Panorel::X11
