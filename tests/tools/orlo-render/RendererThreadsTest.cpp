// SPDX-License-Identifier: AGPL-3.0-or-later
// The renderer's threads.
#include "tools/orlo-render/Renderer.h"

#include "AudioFiles.h"
#include "FileFolder.h"
#include "tools/orlo-render/RenderError.h"

#include <gtest/gtest.h>

#include <bit>

namespace mk::orlo::test
{
namespace
{
using namespace render;

constexpr double rate = 44100.0;

[[nodiscard]] bool goOn (double) { return true; }

class RendererThreads : public testing::Test
{
protected:
    RendererThreads() { settings.hop.sampleRate = rate; }

    /** The levels of the signal from a sample on. */
    [[nodiscard]] LevelGrid render (int width, std::int64_t start, int numThreads)
    {
        AudioSource source (file);
        plan = makePlan ({ settings.hop, start, source.getLength() - start, width });
        return renderLevels (source, plan, settings, numThreads, goOn);
    }

    const FileFolder folder;
    const juce::File file = folder.getFile ("a.wav");
    RenderSettings settings;
    RenderPlan plan;
};

/** Lengths, widths and settings at random; among them pixels longer than a section, floors above ceilings, levels that
    are not numbers, and bins too quiet for reassignment. */
TEST_F (RendererThreads, ThePictureIsTheSameBitByBitForAnyNumberOfThreads)
{
    juce::Random random (1);
    settings.height = 40;

    for (int round = 0; round < 40; ++round)
    {
        const auto window = 256 << random.nextInt (6);
        settings.hop = { window, rate, 100.0f * random.nextFloat(), random.nextBool(), random.nextBool() };
        settings.floorDb = float (-20 * random.nextInt (8));
        settings.ceilingDb = float (-20 * random.nextInt (5));
        settings.scaleType = random.nextInt (5);
        auto signal = makeQuietNoise (1 + random.nextInt (round % 10 == 0 ? 1000 : 60000), round);
        std::fill (signal.begin(), signal.begin() + int (signal.size()) / 3, 0.0f);
        file.deleteFile();
        writeAudioFile (file, { signal }, rate, 32);

        const auto start = random.nextInt (int (signal.size()));
        const auto width = random.nextInt (4) == 0 ? 0 : 1 + random.nextInt (round % 3 == 0 ? 3 : 300);

        const auto expected = render (width, start, 1);

        for (const auto numThreads : { 2, 3, 8 })
        {
            const auto grid = render (width, start, numThreads);
            ASSERT_EQ (grid.getWidth(), expected.getWidth());

            for (int x = 0; x < grid.getWidth(); ++x)
                for (int y = 0; y < settings.height; ++y)
                    ASSERT_EQ (std::bit_cast<unsigned> (grid.get (x, y)), std::bit_cast<unsigned> (expected.get (x, y)))
                        << round << " " << numThreads << " " << x << " " << y;
        }
    }
}

TEST_F (RendererThreads, AFileThatEndsTooEarlyIsTheSameErrorForAnyNumberOfThreads)
{
    const auto flac = folder.getFile ("a.flac");
    writeAudioFile (flac, { makeQuietNoise (400000) }, rate, 16);
    truncateFile (flac, flac.getSize() / 2);

    for (const auto count : { 1, 2, 7 })
    {
        AudioSource source (flac);
        plan = makePlan ({ settings.hop, 0, source.getLength(), 100 });

        try
        {
            juce::ignoreUnused (renderLevels (source, plan, settings, count, goOn));
            ADD_FAILURE() << "no exception";
        }
        catch (const RenderError& error)
        {
            EXPECT_STREQ (error.what(), "'a.flac' is truncated");
            EXPECT_EQ (error.getExitCode(), RenderError::failure);
        }
    }
}

TEST_F (RendererThreads, AnExceptionOfTheProgressFunctionStopsTheThreads)
{
    writeAudioFile (file, { makeQuietNoise (200000) }, rate, 32);
    AudioSource source (file);
    plan = makePlan ({ settings.hop, 0, source.getLength(), 0 });
    const auto fail = [] (double) -> bool { throw std::runtime_error ("bar"); };

    EXPECT_THROW (juce::ignoreUnused (renderLevels (source, plan, settings, 2, fail)), std::runtime_error);
}

} // namespace
} // namespace mk::orlo::test
