// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PngStream.h"

#include "orlo/stills/PngChunk.h"

namespace mk::orlo
{
namespace
{
// Half of the bytes of the highest level for a fifth of its time.
constexpr int compression = 3;
constexpr size_t bytesPerPixel = 3;
constexpr juce::uint8 differenceFromAbove = 2;

void writeHeaderOf (int width, int height, juce::OutputStream& stream)
{
    PngChunk chunk (stream, "IHDR");
    chunk.get().writeIntBigEndian (width);
    chunk.get().writeIntBigEndian (height);

    // Eight bits of red, green and blue, deflated, filtered row by row, not interlaced.
    for (const auto byte : { 8, 2, 0, 0, 0 })
        chunk.get().writeByte (char (byte));
}

/** International text that is not compressed and says nothing about its language. */
void writeText (const juce::String& name, const juce::String& value, juce::OutputStream& stream)
{
    constexpr int longestName = 79;
    PngChunk chunk (stream, "iTXt");
    auto& content = chunk.get();
    content << name.substring (0, longestName);

    for (int i = 0; i < 5; ++i)
        content.writeByte (0);

    content << value;
}
} // namespace

/** Cuts what is written to it into chunks of pixels. */
class PngStream::DataChunks final : public juce::OutputStream
{
public:
    explicit DataChunks (juce::OutputStream& destination) : stream (destination) {}

    ~DataChunks() override { flush(); }

    void flush() override
    {
        if (waiting.getDataSize() > 0)
        {
            PngChunk chunk (stream, "IDAT");
            chunk.get() << waiting;
        }

        waiting.reset();
    }

    bool write (const void* data, size_t size) override
    {
        constexpr size_t largestChunk = 1 << 20;
        waiting.write (data, size);

        if (waiting.getDataSize() >= largestChunk)
            flush();

        return true;
    }

    bool setPosition (juce::int64) override { return false; }
    juce::int64 getPosition() override { return juce::int64 (waiting.getDataSize()); }

private:
    juce::OutputStream& stream;
    juce::MemoryOutputStream waiting;
};

PngStream::PngStream (juce::OutputStream& destination, int width, int height, const TextEntries& texts)
    : stream (destination),
      rowSize (size_t (width) * bytesPerPixel),
      chunks (std::make_unique<DataChunks> (destination)),
      compressor (std::make_unique<juce::GZIPCompressorOutputStream> (*chunks, compression)),
      above (rowSize),
      row (rowSize),
      filtered (rowSize + 1)
{
    filtered[0] = differenceFromAbove;
    writePngSignature (stream);
    writeHeaderOf (width, height, stream);

    for (const auto& [name, value] : texts)
        writeText (name, value, stream);
}

PngStream::~PngStream() = default;

void PngStream::writeRows (const juce::Image& rows, int numRows)
{
    const juce::Image::BitmapData pixels (rows, juce::Image::BitmapData::readOnly);
    jassert (pixels.pixelFormat == juce::Image::RGB && size_t (pixels.width) * bytesPerPixel == rowSize);

    for (int y = 0; y < numRows; ++y)
    {
        const auto* source = pixels.getLinePointer (y);

        for (size_t i = 0; i < rowSize; i += bytesPerPixel, source += pixels.pixelStride)
        {
            const auto& pixel = *reinterpret_cast<const juce::PixelRGB*> (source);
            row[i] = pixel.getRed();
            row[i + 1] = pixel.getGreen();
            row[i + 2] = pixel.getBlue();
        }

        for (size_t i = 0; i < rowSize; ++i)
            filtered[i + 1] = juce::uint8 (row[i] - above[i]);

        compressor->write (filtered.data(), filtered.size());
        std::swap (row, above);
    }
}

void PngStream::finish()
{
    compressor.reset();
    chunks.reset();
    const PngChunk end (stream, "IEND");
}

} // namespace mk::orlo
