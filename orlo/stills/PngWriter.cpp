// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PngWriter.h"

#include <array>

namespace mk::orlo
{
namespace
{
constexpr juce::uint8 trueColour = 2, palette = 3;
constexpr juce::uint8 filterUp = 2;
constexpr int compressionLevel = 1;
constexpr size_t largestPalette = 256;

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

/** A chunk of the file. Collects what is written to it; the destructor writes it out with length and checksum. */
class Chunk
{
public:
    Chunk (juce::OutputStream& destination, const char* type) : stream (destination) { content.write (type, typeSize); }

    ~Chunk()
    {
        stream.writeIntBigEndian (int (content.getDataSize() - typeSize));
        stream.write (content.getData(), content.getDataSize());
        stream.writeIntBigEndian (int (getCrc (content)));
    }

    [[nodiscard]] juce::MemoryOutputStream& get() noexcept { return content; }

private:
    static constexpr size_t typeSize = 4;

    juce::OutputStream& stream;
    juce::MemoryOutputStream content;

    JUCE_DECLARE_NON_COPYABLE (Chunk)
};

/** The format of a row: one byte for each pixel with a palette, three without. */
class RowFormat
{
public:
    explicit RowFormat (const IndexedPicture& picture)
    {
        std::vector<juce::uint8> isUsed (picture.colours.size()); // not bools, whose bits take longer to set

        for (const auto pixel : picture.pixels)
            isUsed[pixel] = 1;

        for (size_t i = 0; i < isUsed.size(); ++i)
        {
            entries.push_back (juce::uint8 (used.size()));
            colours.push_back (picture.colours[i]);

            if (isUsed[i] != 0)
                used.push_back (picture.colours[i]);
        }
    }

    [[nodiscard]] bool hasPalette() const noexcept { return used.size() <= largestPalette; }
    [[nodiscard]] const std::vector<juce::Colour>& getPalette() const noexcept { return used; }
    [[nodiscard]] size_t getBytesPerPixel() const noexcept { return hasPalette() ? 1 : 3; }

    /** Writes a row to the destination, which must have room for width * getBytesPerPixel() bytes. */
    void convert (const std::uint16_t* pixels, size_t width, juce::uint8* destination) const noexcept
    {
        if (hasPalette())
        {
            for (size_t x = 0; x < width; ++x)
                destination[x] = entries[pixels[x]];

            return;
        }

        for (size_t x = 0; x < width; ++x)
        {
            const auto colour = colours[pixels[x]];
            destination[3 * x] = colour.getRed();
            destination[3 * x + 1] = colour.getGreen();
            destination[3 * x + 2] = colour.getBlue();
        }
    }

private:
    std::vector<juce::uint8> entries; // the palette index of each of the picture's colours
    std::vector<juce::Colour> colours, used;
};

void writeHeader (const IndexedPicture& picture, const RowFormat& format, juce::OutputStream& stream)
{
    Chunk chunk (stream, "IHDR");
    auto& content = chunk.get();
    content.writeIntBigEndian (picture.width);
    content.writeIntBigEndian (picture.height);

    constexpr juce::uint8 bitsPerSample = 8, deflate = 0, adaptiveFilter = 0, notInterlaced = 0;

    for (const auto byte :
         { bitsPerSample, format.hasPalette() ? palette : trueColour, deflate, adaptiveFilter, notInterlaced })
        content.writeByte (char (byte));
}

void writePalette (const RowFormat& format, juce::OutputStream& stream)
{
    Chunk chunk (stream, "PLTE");

    for (const auto colour : format.getPalette())
        for (const auto byte : { colour.getRed(), colour.getGreen(), colour.getBlue() })
            chunk.get().writeByte (char (byte));
}

void writeRows (const IndexedPicture& picture, const RowFormat& format, juce::OutputStream& stream)
{
    Chunk chunk (stream, "IDAT");
    juce::GZIPCompressorOutputStream compressor (chunk.get(), compressionLevel);

    const auto width = size_t (picture.width);
    const auto rowSize = width * format.getBytesPerPixel();
    std::vector<juce::uint8> above (rowSize), row (rowSize), filtered (rowSize + 1);
    filtered[0] = filterUp;

    for (int y = 0; y < picture.height; ++y)
    {
        format.convert (picture.pixels.data() + size_t (y) * width, width, row.data());

        for (size_t i = 0; i < rowSize; ++i)
            filtered[i + 1] = juce::uint8 (row[i] - above[i]);

        compressor.write (filtered.data(), filtered.size());
        std::swap (row, above);
    }
}
} // namespace

void writePng (const IndexedPicture& picture, juce::OutputStream& stream)
{
    stream.write ("\x89PNG\r\n\x1a\n", 8);

    const RowFormat format (picture);
    writeHeader (picture, format, stream);

    if (format.hasPalette())
        writePalette (format, stream);

    writeRows (picture, format, stream);
    const Chunk end (stream, "IEND");
}

} // namespace mk::orlo
