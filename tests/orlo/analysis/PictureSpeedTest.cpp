// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests how fast the picture moves, with worker and builder without their threads and with simulated time.
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/HopPlan.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"
#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace mk::orlo::test
{
namespace
{

/** Plays silence into a worker and ticks the builder behind it. */
class Playback
{
public:
    explicit Playback (const HopSettings& settings) : sampleRate (settings.sampleRate), plan (planHop (settings))
    {
        worker.prepareToPlay (sampleRate);
        worker.setEnhanced (settings.enhanced);
        worker.setHop (plan.samplesPerFrame);
        worker.setPendingConfig ({ settings.windowSize - 1, 0, int (WindowType::hann) });
        worker.processAvailable();
        builder.setFramesPerColumn (plan.framesPerColumn);
        builder.setMaxFreqFraction (1.0f);

        // Wider than the number of columns drawn in any test, so that the write position counts the columns.
        builder.setRequestedSize (12000, 1);
    }

    /** Plays some seconds of audio and ticks at their end. The host sends blocks of blockSize samples, by
        default one block with everything since the last tick. */
    void tick (double seconds, int blockSize = 1)
    {
        now += seconds;
        const auto played = juce::int64 (now * sampleRate) / blockSize * blockSize;
        const std::vector<float> block (size_t (blockSize == 1 ? played - numSamples : blockSize));

        for (; numSamples < played; numSamples += juce::int64 (block.size()))
        {
            worker.pushSamples (block.data(), int (block.size()));
            worker.processAvailable();
        }

        builder.processTick (float (seconds / double (plan.secondsPerColumn)));
    }

    /** The number of columns that the samples played so far amount to. */
    [[nodiscard]] double getColumnsHeard() const { return double (numSamples) / getSamplesPerColumn(); }

    [[nodiscard]] int getColumnsDrawn()
    {
        std::ignore = builder.fetchColumns();
        return builder.getPicture().getWriteX();
    }

    /** The length of the queue, in ticks of the given length. */
    [[nodiscard]] double getTicksWaiting (double secondsPerTick) const
    {
        const auto columns = double (worker.getNumFramesReady()) / plan.framesPerColumn;
        return columns * getSamplesPerColumn() / (secondsPerTick * sampleRate);
    }

private:
    [[nodiscard]] double getSamplesPerColumn() const { return double (plan.samplesPerFrame) * plan.framesPerColumn; }

    const double sampleRate;
    const HopPlan plan;
    FFTProcessor worker;
    FrameClock clock;
    SpectrogramImageBuilder builder { worker, clock };
    double now = 0.0;
    juce::int64 numSamples = 0;
};

/** Settings with one or several frames a column, and with column rates near the requested speed or far from it. */
const HopSettings settingsToTry[] {
    { 2048, 44100.0, 40.0f, false, false }, // Classic: a frame a column
    { 2048, 44100.0, 40.0f, false, true },  // the default
    { 512, 44100.0, 40.0f, false, true },   // two frames a column, 2 % more columns than asked for
    { 256, 48000.0, 66.0f, true, true },    // 30 % more columns than asked for
    { 8192, 96000.0, 0.0f, false, false },  // slower than most displays
};

/** The seconds to play. */
constexpr double secondsToPlay = 10.0 / slowdown;

[[nodiscard]] std::string describe (const HopSettings& settings)
{
    return std::to_string (settings.windowSize) + (settings.enhanced ? " Enhanced" : " Classic");
}

TEST (PictureSpeed, MatchesTheAudioAtEveryRefreshRate)
{
    for (const auto& settings : settingsToTry)
        for (const auto hertz : { 30, 50, 60, 75, 90, 98 })
        {
            SCOPED_TRACE (describe (settings) + " at " + std::to_string (hertz) + " Hz");
            Playback playback (settings);
            auto longestQueue = 0.0;

            for (int i = 0; i < secondsToPlay * hertz; ++i)
            {
                playback.tick (1.0 / hertz);
                longestQueue = std::max (longestQueue, playback.getTicksWaiting (1.0 / hertz));
            }

            EXPECT_NEAR (playback.getColumnsDrawn(), playback.getColumnsHeard(), 1.0);
            EXPECT_LT (longestQueue, 2.0);
        }
}

TEST (PictureSpeed, MatchesTheAudioOnADisplayThatJitters)
{
    for (const auto& settings : settingsToTry)
    {
        SCOPED_TRACE (describe (settings));
        juce::Random random (7);
        Playback playback (settings);
        auto longestQueue = 0.0;

        for (auto seconds = 0.0; seconds < secondsToPlay;)
        {
            const auto tick = juce::jmap (random.nextDouble(), 0.010, 0.025);
            playback.tick (tick);
            longestQueue = std::max (longestQueue, playback.getTicksWaiting (tick));
            seconds += tick;
        }

        EXPECT_NEAR (playback.getColumnsDrawn(), playback.getColumnsHeard(), 1.0);
        EXPECT_LT (longestQueue, 2.0);
    }
}

TEST (PictureSpeed, MatchesTheAudioAtEveryBlockSizeOfTheHost)
{
    for (const auto blockSize : { 64, 512, 1024, 2048, 4096 })
        for (const auto hertz : { 30, 60, 75, 98 })
        {
            SCOPED_TRACE (std::to_string (blockSize) + " samples at " + std::to_string (hertz) + " Hz");
            const auto columnsInBlock = blockSize / 163.0;
            Playback playback (settingsToTry[0]);

            for (int i = 0; i < secondsToPlay * hertz; ++i)
                playback.tick (1.0 / hertz, blockSize);

            // Only the last block may not have been drawn yet.
            EXPECT_LE (playback.getColumnsDrawn(), playback.getColumnsHeard());
            EXPECT_GE (playback.getColumnsDrawn(), playback.getColumnsHeard() - columnsInBlock - 1.0);
        }
}

TEST (PictureSpeed, IsEvenWhenTheHostsBlocksAreLongerThanATick)
{
    constexpr auto hertz = 60;
    constexpr auto columnsPerTick = 44100.0 / 163 / hertz; // a block of 2048 is worth 12.6 columns
    Playback playback (settingsToTry[0]);

    for (int i = 0; i < hertz; ++i)
        playback.tick (1.0 / hertz, 2048);

    for (int i = 0; i < secondsToPlay * hertz; ++i)
    {
        const auto before = playback.getColumnsDrawn();
        playback.tick (1.0 / hertz, 2048);
        EXPECT_NEAR (playback.getColumnsDrawn() - before, columnsPerTick, 3.0) << i;
    }
}

TEST (PictureSpeed, CatchesUpAfterAPauseOfTheBuilder)
{
    Playback playback (settingsToTry[0]);

    for (int i = 0; i < 60; ++i)
        playback.tick (1.0 / 60.0);

    // The pause is short enough for its frames to fit into the queue.
    playback.tick (0.15);

    for (int i = 0; i < 60; ++i)
        playback.tick (1.0 / 60.0);

    EXPECT_NEAR (playback.getColumnsDrawn(), playback.getColumnsHeard(), 1.0);
}

} // namespace
} // namespace mk::orlo::test
