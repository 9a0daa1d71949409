// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/NpyWriter.h"

#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{

TEST (NpyWriter, WritesRowsByColumnsInCOrder)
{
    // More rows than are written at once, and not a multiple of that number.
    LevelGrid levels (3, 37);

    for (int x = 0; x < 3; ++x)
    {
        std::vector<float> column;

        for (int y = 0; y < 37; ++y)
            column.push_back (float (100 * x + y));

        levels.setColumn (x, column);
    }

    juce::MemoryOutputStream stream;
    writeNpy (levels, stream);
    const auto array = readNpy (stream.getMemoryBlock());

    EXPECT_TRUE (array.header.startsWith ("{'descr': '<f4', 'fortran_order': False, 'shape': (37, 3), }"));
    EXPECT_TRUE (array.header.endsWith ("\n"));
    EXPECT_EQ ((10 + array.header.length()) % 64, 0);
    ASSERT_EQ (array.values.size(), 3u * 37u);

    for (int y = 0; y < 37; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ (array.get (y, x), float (100 * x + y));
}

} // namespace mk::orlo::test
