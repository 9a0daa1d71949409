// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SoundHistory.h"

#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <thread>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 1000.0;

void pushSamples (SoundHistory& history, int count, float value = 1.0f)
{
    const std::vector<float> block (size_t (count), value);
    const std::array<const float*, 2> channels { block.data(), block.data() };
    history.push (channels.data(), 2, count, {});
}

TEST (SoundHistory, KeepsNothingUntilItIsStarted)
{
    SoundHistory history;
    pushSamples (history, 10);
    EXPECT_EQ (history.getSound(), nullptr);

    history.prepare (rate, 2);
    pushSamples (history, 10);
    EXPECT_EQ (history.getSound(), nullptr);

    history.start (2.0);
    ASSERT_NE (history.getSound(), nullptr);
    EXPECT_EQ (history.getSound()->getCapacity(), 2000);
    EXPECT_EQ (history.getSound()->getNumChannels(), 2);
    pushSamples (history, 10);
    EXPECT_EQ (history.getSound()->getEnd(), 10);
}

TEST (SoundHistory, StartedBeforeItIsPreparedBeginsThen)
{
    SoundHistory history;
    history.start (2.0);
    EXPECT_EQ (history.getSound(), nullptr);
    history.prepare (rate, 1);
    ASSERT_NE (history.getSound(), nullptr);
    EXPECT_EQ (history.getSound()->getNumChannels(), 1);
}

TEST (SoundHistory, LimitsTheTimeAndTakesZeroAndNonsenseForOff)
{
    SoundHistory history;
    history.prepare (rate, 1);
    history.start (1.0e9);
    EXPECT_EQ (double (history.getSound()->getCapacity()), SoundHistory::longestSeconds * rate);

    for (const auto seconds : { 0.0, -5.0, std::numeric_limits<double>::quiet_NaN() })
    {
        history.start (2.0);
        history.start (seconds);
        EXPECT_EQ (history.getSound(), nullptr) << seconds;
    }
}

TEST (SoundHistory, GoesOnWhereNothingHasChangedAndElseStartsAnew)
{
    SoundHistory history;
    history.prepare (rate, 2);
    history.start (2.0);
    pushSamples (history, 10);

    history.prepare (rate, 2);
    history.start (2.0);
    EXPECT_EQ (history.getSound()->getEnd(), 10);

    const auto old = history.getSound();
    history.prepare (2.0 * rate, 2);
    EXPECT_EQ (history.getSound()->getEnd(), 0);
    EXPECT_EQ (history.getSound()->getCapacity(), 4000);
    EXPECT_EQ (history.getSound()->getSampleRate(), 2.0 * rate);

    // Whoever still reads the old sound may go on.
    float sample = 0.0f;
    EXPECT_TRUE (old->read (0, 9, &sample, 1));
    EXPECT_EQ (sample, 1.0f);

    pushSamples (history, 10);
    history.prepare (2.0 * rate, 1);
    EXPECT_EQ (history.getSound()->getEnd(), 0);
    EXPECT_EQ (history.getSound()->getNumChannels(), 1);
}

TEST (SoundHistory, GivesTheMemoryBackWhenItStops)
{
    SoundHistory history;
    history.prepare (rate, 2);
    history.start (2.0);
    const std::weak_ptr<const KeptSound> sound = history.getSound();
    EXPECT_FALSE (sound.expired());

    history.stop();
    EXPECT_TRUE (sound.expired());
    pushSamples (history, 10);
}

TEST (SoundHistory, CanKeepTheSoundForTheNextStart)
{
    SoundHistory history;
    history.prepare (rate, 2);
    history.start (2.0);
    pushSamples (history, 10);

    history.stopButKeep();
    history.start (2.0);
    EXPECT_EQ (history.getSound()->getEnd(), 10);

    // Nobody wants sound of another format now.
    history.stopButKeep();
    history.prepare (2.0 * rate, 2);
    EXPECT_EQ (history.getSound(), nullptr);
}

TEST (SoundHistory, WithoutMemoryIsOff)
{
    if (hasAddressSanitizer || hasThreadSanitizer)
        GTEST_SKIP() << "their allocators end the program";

    SoundHistory history;
    history.prepare (1.0e16, 2); // six exabytes
    history.start (600.0);
    EXPECT_EQ (history.getSound(), nullptr);
    pushSamples (history, 10);

    history.prepare (rate, 2);
    EXPECT_NE (history.getSound(), nullptr);
}

/** Most useful under ThreadSanitizer and AddressSanitizer. */
TEST (SoundHistory, IsStartedAndStoppedWhileTheAudioThreadPushes)
{
    SoundHistory history;
    history.prepare (rate, 2);
    std::atomic<bool> done { false };
    std::atomic<int> numPushed { 0 };

    std::thread audio (
        [&]
        {
            while (! done.load())
            {
                pushSamples (history, 64);
                numPushed.fetch_add (1);
            }
        });

    for (int i = 0; i < 1000 || numPushed.load() < 1000; ++i)
    {
        history.start (1.0 + i % 2);
        ASSERT_NE (history.getSound(), nullptr);

        if (i % 3 == 0)
            history.stop();
    }

    done.store (true);
    audio.join();
}

} // namespace
} // namespace mk::orlo::test
