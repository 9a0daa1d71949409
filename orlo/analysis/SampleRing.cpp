// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SampleRing.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace mk::orlo
{
namespace
{
using Two = std::array<float, 2>;
} // namespace

// The memory is written to, not only asked for: the system hands a page out when it is first touched.
SampleRing::SampleRing (std::int64_t numSamples)
    : numPairs ((numSamples + 1) / 2), pairs (std::make_unique<std::atomic<Pair>[]> (size_t (numPairs)))
{
}

void SampleRing::writeOne (std::int64_t index, int place, float sample) noexcept
{
    // Nobody else writes, so the other half stays what it is.
    auto two = std::bit_cast<Two> (pairs[size_t (index)].load (std::memory_order_relaxed));
    two[size_t (place)] = sample;
    pairs[size_t (index)].store (std::bit_cast<Pair> (two), std::memory_order_release);
}

void SampleRing::write (std::int64_t position, const float* samples, int count) noexcept
{
    auto index = (position / 2) % numPairs;
    const auto moveOn = [&] { index = index + 1 < numPairs ? index + 1 : 0; };

    if (count > 0 && position % 2 != 0)
    {
        writeOne (index, 1, *samples++);
        --count;
        moveOn();
    }

    while (count >= 2)
    {
        const auto run = std::min<std::int64_t> (count / 2, numPairs - index);
        auto* const target = pairs.get() + index;

        for (std::int64_t i = 0; i < run; ++i)
        {
            Pair pair;
            std::memcpy (&pair, samples + 2 * i, sizeof (pair));
            target[i].store (pair, std::memory_order_release);
        }

        samples += 2 * run;
        count -= int (2 * run);
        index = index + run < numPairs ? index + run : 0;
    }

    if (count > 0)
        writeOne (index, 0, *samples);
}

void SampleRing::read (std::int64_t position, float* destination, int count) const noexcept
{
    auto index = (position / 2) % numPairs;
    auto place = size_t (position % 2);

    for (int i = 0; i < count;)
    {
        const auto two = std::bit_cast<Two> (pairs[size_t (index)].load (std::memory_order_acquire));

        for (; place < 2 && i < count; ++place)
            destination[i++] = two[place];

        place = 0;
        index = index + 1 < numPairs ? index + 1 : 0;
    }
}

} // namespace mk::orlo
