// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SampleRing.h"

#include <gtest/gtest.h>

#include <vector>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] std::vector<float> makeRamp (std::int64_t start, int count)
{
    std::vector<float> ramp;

    for (int i = 0; i < count; ++i)
        ramp.push_back (float (start + i));

    return ramp;
}

/** Blocks of all lengths, odd and even, at odd and even places and across the end. */
TEST (SampleRing, HasTheNewestSamplesWhateverTheBlocks)
{
    for (const auto size : { 1, 2, 7, 64 })
        for (int blockSize = 1; blockSize <= size; ++blockSize)
        {
            SampleRing ring (size);
            ASSERT_GE (ring.getCapacity(), size);

            for (std::int64_t position = 0; position < 200; position += blockSize)
            {
                ring.write (position, makeRamp (position, blockSize).data(), blockSize);

                const auto end = position + blockSize;
                const auto count = int (std::min<std::int64_t> (end, size));
                std::vector<float> read (size_t (count), -1.0f);
                ring.read (end - count, read.data(), count);
                ASSERT_EQ (read, makeRamp (end - count, count)) << size << " " << blockSize << " " << position;
            }
        }
}

} // namespace
} // namespace mk::orlo::test
