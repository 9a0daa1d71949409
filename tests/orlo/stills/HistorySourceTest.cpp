// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/HistorySource.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace mk::orlo::test
{
namespace
{

/** Keeps samples of which the left ones count from 0 on and the right ones are twice as large. */
void pushRamp (KeptSound& sound, int count)
{
    std::vector<float> left, right;

    for (int i = 0; i < count; ++i)
    {
        left.push_back (float (sound.getEnd() + i));
        right.push_back (2.0f * left.back());
    }

    const std::array<const float*, 2> channels { left.data(), right.data() };
    sound.push (channels.data(), 2, count, {});
}

TEST (HistorySource, IsTheMeanOfTheChannelsWithSilenceAroundTheRange)
{
    for (const auto numChannels : { 1, 2 })
    {
        const auto sound = std::make_shared<KeptSound> (48000.0, numChannels, 20000);
        pushRamp (*sound, 15000);
        HistorySource source (sound, 100, 14900);
        std::vector<float> samples (15000);
        source.read (0, samples);

        for (int i = 0; i < 15000; ++i)
            ASSERT_EQ (samples[size_t (i)],
                       i < 100 || i >= 14900 ? 0.0f : float (i) * (numChannels == 1 ? 1.0f : 1.5f));

        std::vector<float> outside (10, 1.0f);
        source.read (-500, outside);
        EXPECT_EQ (outside, std::vector<float> (10));
        source.read (20000, outside);
        EXPECT_EQ (outside, std::vector<float> (10));
    }
}

TEST (HistorySource, IsTheChosenOneOfTwoChannels)
{
    for (const auto numChannels : { 1, 2 })
    {
        const auto sound = std::make_shared<KeptSound> (48000.0, numChannels, 20000);
        pushRamp (*sound, 10000);

        for (const auto& [what, factor] : { std::pair { Source::mean, 1.5f },
                                            { Source::left, 1.0f },
                                            { Source::right, 2.0f },
                                            { Source::mid, 1.5f },
                                            { Source::side, -0.5f } })
        {
            StillRequest request;
            setSource (request, sound, what);
            EXPECT_EQ (request.otherSource, nullptr);
            std::vector<float> samples (100);
            request.source->read (5000, samples);
            EXPECT_EQ (samples[7], 5007.0f * (numChannels == 1 ? 1.0f : factor)) << int (what);
        }

        StillRequest request;
        setSource (request, sound, Source::loudest);
        std::vector<float> samples (100);
        request.source->read (5000, samples);
        EXPECT_EQ (samples[7], 5007.0f);
        ASSERT_EQ (request.otherSource != nullptr, numChannels == 2);

        if (numChannels == 2)
        {
            request.otherSource->read (5000, samples);
            EXPECT_EQ (samples[7], 2.0f * 5007.0f);
        }
    }
}

TEST (HistorySource, SaysThatTheSoundHasBeenOverwritten)
{
    const auto sound = std::make_shared<KeptSound> (48000.0, 2, 1000);
    pushRamp (*sound, 1000);
    HistorySource source (sound);
    EXPECT_EQ (source.getStart(), 0);
    EXPECT_EQ (source.getEnd(), 1000);

    pushRamp (*sound, 10);
    std::vector<float> samples (20);
    EXPECT_THROW (source.read (5, samples), SoundOverwritten);
    EXPECT_NO_THROW (source.read (10, samples));
    EXPECT_EQ (samples[0], 15.0f);
}

} // namespace
} // namespace mk::orlo::test
