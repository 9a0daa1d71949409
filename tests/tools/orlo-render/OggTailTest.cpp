// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/OggTail.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;

/** A page with the given flags and a body of some bytes. */
void appendPage (juce::MemoryOutputStream& stream, int flags, int bodySize)
{
    stream.write ("OggS", 4);
    stream.writeByte (0);
    stream.writeByte (char (flags));
    stream.writeRepeatedByte (0, 20);

    const auto numSegments = bodySize / 255 + 1;
    stream.writeByte (char (numSegments));
    stream.writeRepeatedByte (255, size_t (numSegments - 1));
    stream.writeByte (char (bodySize % 255));
    stream.writeRepeatedByte ('x', size_t (bodySize));
}

[[nodiscard]] bool endsWell (const juce::MemoryOutputStream& stream, size_t numBytes)
{
    juce::MemoryInputStream input (stream.getData(), numBytes, false);
    input.setPosition (1);
    const auto result = endsWithLastPage (input);
    EXPECT_EQ (input.getPosition(), 1);
    return result;
}
} // namespace

TEST (OggTail, AcceptsAStreamWhoseLastPageIsWholeAndMarkedAsLast)
{
    juce::MemoryOutputStream stream;
    appendPage (stream, 2, 30);
    appendPage (stream, 4, 700);
    EXPECT_TRUE (endsWell (stream, stream.getDataSize()));

    stream.write ("something else", 14);
    EXPECT_TRUE (endsWell (stream, stream.getDataSize()));
}

TEST (OggTail, RejectsAStreamThatIsCutAnywhere)
{
    juce::MemoryOutputStream stream;
    appendPage (stream, 2, 30);
    appendPage (stream, 0, 700);
    appendPage (stream, 4, 300);

    for (size_t size = 1; size < stream.getDataSize(); ++size)
        EXPECT_FALSE (endsWell (stream, size)) << size;
}

TEST (OggTail, ReadsOnlyTheEndOfALongStream)
{
    juce::MemoryOutputStream stream;

    for (int i = 0; i < 10; ++i)
        appendPage (stream, 0, 255 * 254);

    EXPECT_FALSE (endsWell (stream, stream.getDataSize()));
    appendPage (stream, 4, 255 * 254);
    EXPECT_TRUE (endsWell (stream, stream.getDataSize()));
}

} // namespace mk::orlo::test
