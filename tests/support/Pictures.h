// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace mk::orlo::test
{

/** A two-dimensional NumPy array, read from its file. Has no rows if the file is not such an array. */
struct NpyArray
{
    juce::String header;
    int rows = 0, columns = 0;
    std::vector<float> values; // row by row

    [[nodiscard]] float get (int row, int column) const
    {
        return values[size_t (row) * size_t (columns) + size_t (column)];
    }
};

[[nodiscard]] inline NpyArray readNpy (const juce::MemoryBlock& file)
{
    NpyArray array;
    juce::MemoryInputStream stream (file, false);

    char mark[8] {};
    stream.read (mark, 8);

    if (juce::String::fromUTF8 (mark + 1, 5) != "NUMPY" || juce::uint8 (mark[0]) != 0x93 || mark[6] != 1
        || mark[7] != 0)
        return array;

    const auto headerSize = int (stream.readShort());
    juce::MemoryBlock header;
    stream.readIntoMemoryBlock (header, headerSize);
    array.header = header.toString();

    const auto shape = juce::StringArray::fromTokens (
        array.header.fromFirstOccurrenceOf ("'shape': (", false, false).upToFirstOccurrenceOf (")", false, false),
        ",",
        {});
    array.rows = shape[0].getIntValue();
    array.columns = shape[1].getIntValue();

    while (stream.getNumBytesRemaining() >= 4)
        array.values.push_back (stream.readFloat());

    return array;
}

[[nodiscard]] inline NpyArray readNpy (const juce::File& file)
{
    juce::MemoryBlock content;
    file.loadFileAsData (content);
    return readNpy (content);
}

[[nodiscard]] inline juce::Image readPng (const juce::File& file) { return juce::PNGImageFormat::loadFrom (file); }

} // namespace mk::orlo::test
