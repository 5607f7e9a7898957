#include "Desktop/Support/Edid.h"

#include <numeric>

namespace Panorel::Desktop {
namespace {

void put(QByteArray &block, int offset, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        block[offset + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

} // namespace

QByteArray buildEdid(const EdidFields &fields)
{
    QByteArray block(128, '\0');
    block.replace(0, 8, QByteArray::fromHex("00ffffffffffff00"));

    // Five bits a letter, "A" is 1, the first letter on top, big-endian.
    std::uint16_t vendor = 0;
    for (int i = 0; i < 3; ++i)
        vendor = static_cast<std::uint16_t>((vendor << 5) | (fields.vendor[i] - 'A' + 1));
    block[8] = static_cast<char>(vendor >> 8);
    block[9] = static_cast<char>(vendor & 0xFF);
    put(block, 10, fields.model, 2);
    put(block, 12, fields.serial, 4);

    block[16] = 1;  // week
    block[17] = 34; // year, from 1990
    block[18] = 1;
    block[19] = 4;
    block[20] = static_cast<char>(0xA5); // digital, 8 bits a colour
    block[21] = 60;                      // centimetres
    block[22] = 34;
    block[23] = 120;                                                    // gamma 2.2
    block.replace(25, 10, QByteArray::fromHex("ee91a3544c99260f5054")); // the colours of sRGB
    if (!fields.name.isEmpty()) {
        // Third descriptor: the display's name, ended by a line feed, padded with blanks.
        const QByteArray text = (fields.name.left(13) + '\n').leftJustified(13, ' ', true);
        block.replace(90, 18, QByteArray::fromHex("000000fc00") + text);
    }
    const int sum = std::accumulate(block.cbegin(), block.cend() - 1, 0,
                                    [](int all, char byte) { return all + std::uint8_t(byte); });
    block[127] = static_cast<char>((256 - sum % 256) % 256);
    return block;
}

} // namespace Panorel::Desktop
