// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/KeptSound.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <thread>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 48000.0;

/** What the tests write: a number for each sample and channel that tells which one it is. */
[[nodiscard]] float sampleAt (std::int64_t position, int channel)
{
    return float (position % 1000000) * (channel == 0 ? 1.0f : -1.0f);
}

void pushBlock (KeptSound& sound, int count, const HostNote& note = {})
{
    std::array<std::vector<float>, 2> block;

    for (int channel = 0; channel < 2; ++channel)
        for (int i = 0; i < count; ++i)
            block[size_t (channel)].push_back (sampleAt (sound.getEnd() + i, channel));

    const std::array<const float*, 2> channels { block[0].data(), block[1].data() };
    sound.push (channels.data(), 2, count, note);
}

/** Whether the range can be read; expects the right samples then. */
[[nodiscard]] bool readsRightly (const KeptSound& sound, int channel, std::int64_t position, int count)
{
    std::vector<float> samples (static_cast<size_t> (count));

    if (! sound.read (channel, position, samples.data(), count))
        return false;

    for (int i = 0; i < count; ++i)
        if (samples[size_t (i)] != sampleAt (position + i, channel)) // NOLINT: the very same
        {
            ADD_FAILURE() << position << " + " << i << " is " << samples[size_t (i)];
            break;
        }

    return true;
}

TEST (KeptSound, HasEachChannelsNewestSamplesByTheirPosition)
{
    KeptSound sound (rate, 2, 1000);
    EXPECT_EQ (sound.getStart(), 0);
    EXPECT_EQ (sound.getEnd(), 0);

    for (const auto size : { 1, 300, 299, 300, 7, 512, 5000, 3 })
    {
        pushBlock (sound, size);
        const auto start = sound.getStart(), end = sound.getEnd();
        EXPECT_EQ (end - start, std::min<std::int64_t> (end, 1000));

        for (const auto channel : { 0, 1 })
        {
            EXPECT_TRUE (readsRightly (sound, channel, start, int (end - start)));
            EXPECT_TRUE (readsRightly (sound, channel, end - 1, 1));
            EXPECT_FALSE (readsRightly (sound, channel, end, 1));
            EXPECT_FALSE (readsRightly (sound, channel, start - 1, 2));
        }
    }
}

TEST (KeptSound, RepeatsTheLastChannelOfABlockThatHasFewer)
{
    KeptSound sound (rate, 2, 100);
    const std::vector<float> block { 1.0f, 2.0f, 3.0f };
    const auto* const channel = block.data();
    sound.push (&channel, 1, 3, {});

    std::vector<float> right (3);
    ASSERT_TRUE (sound.read (1, 0, right.data(), 3));
    EXPECT_EQ (right, block);
}

TEST (KeptSound, NotesTheHostsTimeAtTheBlocksFirstSample)
{
    KeptSound sound (rate, 1, 1000);
    HostNote note;
    note.position = 77; // somebody else's count
    note.quarters = 8.0;
    note.quartersPerMinute = 60.0;

    pushBlock (sound, 100);
    pushBlock (sound, 100, note);

    EXPECT_FALSE (sound.getHostNote (99).isKnown());
    EXPECT_EQ (sound.getHostNote (150).position, 100);
    EXPECT_EQ (sound.getHostNote (150).quarters, 8.0);
    EXPECT_EQ (sound.getHostNotes().size(), 1u);
}

/** Most useful under ThreadSanitizer. */
TEST (KeptSound, TellsReadersWhatWasOverwrittenWhileTheyRead)
{
    KeptSound sound (rate, 2, 4096);
    std::atomic<bool> done { false };
    std::atomic<int> numRead { 0 };

    const auto readAll = [&] (int reader)
    {
        for (std::int64_t i = 0; ! done.load(); ++i)
        {
            // The oldest that are left, so that the writer is near.
            const auto position = sound.getStart() + i % 50;
            numRead.fetch_add (readsRightly (sound, reader, position, 300) ? 1 : 0);
        }
    };

    std::thread first (readAll, 0), second (readAll, 1);

    for (int i = 0; i < 20000 || numRead.load() < 100; ++i)
        pushBlock (sound, 1 + (i * 37) % 700);

    done.store (true);
    first.join();
    second.join();

    EXPECT_TRUE (readsRightly (sound, 0, sound.getStart(), int (sound.getCapacity())));
}

} // namespace
} // namespace mk::orlo::test
