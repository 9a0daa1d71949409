// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <memory>
#include <utility>
#include <vector>

namespace mk::orlo
{

/** Names and values in their order, the names of at most 79 plain characters. */
using TextEntries = std::vector<std::pair<juce::String, juce::String>>;

/** Writes a PNG of true colour from the top down, so that a large picture never has to be in memory as a whole. Failed
    writes are reported by the stream only. One thread at a time. */
class PngStream
{
public:
    /** Writes the header, and the texts as chunks for those who ask the file about itself. The stream must outlive the
        object. Throws std::bad_alloc, as all functions. */
    PngStream (juce::OutputStream& stream, int width, int height, const TextEntries& texts);

    /** Without finish() the file stays incomplete. */
    ~PngStream();

    /** Adds rows of the picture's width: an image of the format RGB. */
    void writeRows (const juce::Image& rows, int numRows);

    /** Writes the end. */
    void finish();

private:
    class DataChunks;

    juce::OutputStream& stream;
    const size_t rowSize; // bytes
    std::unique_ptr<DataChunks> chunks;
    std::unique_ptr<juce::GZIPCompressorOutputStream> compressor;
    std::vector<juce::uint8> above, row, filtered;

    JUCE_DECLARE_NON_COPYABLE (PngStream)
};

} // namespace mk::orlo
