// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NpyWriter.h"

#include <bit>

namespace mk::orlo
{
namespace
{
// The bytes before the text of the header: the magic string, the version and the text's length.
constexpr int prefixSize = 10;
constexpr int alignment = 64;

[[nodiscard]] juce::String makeHeader (int numRows, int numColumns)
{
    const auto* const order = std::endian::native == std::endian::little ? "<" : ">";
    auto header = juce::String ("{'descr': '") + order + "f4', 'fortran_order': False, 'shape': ("
                  + juce::String (numRows) + ", " + juce::String (numColumns) + "), }";

    // The data must start at a multiple of the alignment, and the text must end with a line feed.
    while ((prefixSize + header.length() + 1) % alignment != 0)
        header << " ";

    return header + "\n";
}
} // namespace

void writeNpyHeader (int numRows, int numColumns, juce::OutputStream& stream)
{
    const auto header = makeHeader (numRows, numColumns);
    stream.write ("\x93NUMPY\x01\x00", 8);
    stream.writeShort (short (header.length()));
    stream.write (header.toRawUTF8(), size_t (header.length()));
}

void writeNpy (const LevelGrid& levels, juce::OutputStream& stream)
{
    writeNpyHeader (levels.getHeight(), levels.getWidth(), stream);

    // A column's levels are adjacent in memory, so several rows are gathered at a time.
    constexpr int rowsAtOnce = 16;
    const auto width = levels.getWidth();
    std::vector<float> rows (size_t (width) * rowsAtOnce);

    for (int top = 0; top < levels.getHeight(); top += rowsAtOnce)
    {
        const auto numRows = std::min (rowsAtOnce, levels.getHeight() - top);

        for (int x = 0; x < width; ++x)
            for (int row = 0; row < numRows; ++row)
                rows[size_t (row) * size_t (width) + size_t (x)] = levels.get (x, top + row);

        stream.write (rows.data(), size_t (numRows) * size_t (width) * sizeof (float));
    }
}

} // namespace mk::orlo
