// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PngChunk.h"

#include <array>

namespace mk::orlo
{
namespace
{
// Bytes that the checksum takes at a time: with one table for each of them their lookups do not wait for each other.
constexpr size_t crcStep = 8;
using CrcTables = std::array<std::array<juce::uint32, 256>, crcStep>;

/** For the CRC-32 at the end of every chunk: table n has that of each byte value followed by n zero bytes. */
[[nodiscard]] constexpr CrcTables makeCrcTables()
{
    CrcTables tables {};

    for (juce::uint32 byte = 0; byte < 256; ++byte)
    {
        auto remainder = byte;

        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 1) != 0 ? 0xedb88320u ^ (remainder >> 1) : remainder >> 1;

        tables[0][byte] = remainder;
    }

    for (size_t numZeros = 1; numZeros < crcStep; ++numZeros)
        for (size_t byte = 0; byte < 256; ++byte)
        {
            const auto before = tables[numZeros - 1][byte];
            tables[numZeros][byte] = tables[0][before & 0xff] ^ (before >> 8);
        }

    return tables;
}

[[nodiscard]] juce::uint32 getCrc (const juce::MemoryOutputStream& content)
{
    static constexpr auto tables = makeCrcTables();
    const auto* bytes = static_cast<const juce::uint8*> (content.getData());
    auto remaining = content.getDataSize();
    auto crc = 0xffffffffu;

    for (; remaining >= crcStep; remaining -= crcStep, bytes += crcStep)
    {
        const auto first = crc ^ juce::ByteOrder::littleEndianInt (bytes);
        crc = tables[7][first & 0xff] ^ tables[6][(first >> 8) & 0xff] ^ tables[5][(first >> 16) & 0xff]
              ^ tables[4][first >> 24] ^ tables[3][bytes[4]] ^ tables[2][bytes[5]] ^ tables[1][bytes[6]]
              ^ tables[0][bytes[7]];
    }

    for (; remaining > 0; --remaining, ++bytes)
        crc = tables[0][(crc ^ *bytes) & 0xff] ^ (crc >> 8);

    return ~crc;
}
} // namespace

void writePngSignature (juce::OutputStream& stream) { stream.write ("\x89PNG\r\n\x1a\n", 8); }

PngChunk::~PngChunk()
{
    stream.writeIntBigEndian (int (content.getDataSize() - typeSize));
    stream.write (content.getData(), content.getDataSize());
    stream.writeIntBigEndian (int (getCrc (content)));
}

} // namespace mk::orlo
