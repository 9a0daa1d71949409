// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PngWriter.h"

#include "PngChunk.h"

namespace mk::orlo
{
namespace
{
constexpr juce::uint8 trueColour = 2, palette = 3;
constexpr juce::uint8 filterUp = 2;
constexpr int compressionLevel = 1;
constexpr size_t largestPalette = 256;

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
    PngChunk chunk (stream, "IHDR");
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
    PngChunk chunk (stream, "PLTE");

    for (const auto colour : format.getPalette())
        for (const auto byte : { colour.getRed(), colour.getGreen(), colour.getBlue() })
            chunk.get().writeByte (char (byte));
}

void writeRows (const IndexedPicture& picture, const RowFormat& format, juce::OutputStream& stream)
{
    PngChunk chunk (stream, "IDAT");
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
    writePngSignature (stream);

    const RowFormat format (picture);
    writeHeader (picture, format, stream);

    if (format.hasPalette())
        writePalette (format, stream);

    writeRows (picture, format, stream);
    const PngChunk end (stream, "IEND");
}

} // namespace mk::orlo
