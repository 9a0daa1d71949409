// SPDX-License-Identifier: AGPL-3.0-or-later
// The pictures that the program makes.
#include "OrloRenderFixture.h"

#include "orlo/analysis/ColourMap.h"

#include <cmath>
#include <numeric>

namespace mk::orlo::test
{
namespace
{
/** The row that is brightest in the middle of the picture. */
[[nodiscard]] int findBrightestRow (const juce::Image& image)
{
    int brightest = 0;

    for (int y = 0; y < image.getHeight(); ++y)
    {
        const auto levelOf = [&] (int row) { return int (image.getPixelAt (image.getWidth() / 2, row).getRed()); };

        if (levelOf (y) > levelOf (brightest))
            brightest = y;
    }

    return brightest;
}

/** The height of a frequency on each scale from 0 Hz to half the sample rate, as a share; 0 is the bottom. */
[[nodiscard]] double positionOnScale (const juce::String& scale, double hz)
{
    const auto share = [hz] (auto formula)
    { return (formula (hz) - formula (0)) / (formula (rate / 2) - formula (0)); };

    if (scale == "Linear")
        return share ([] (double f) { return f; });

    if (scale == "Mel")
        return share ([] (double f) { return std::log10 (1.0 + f / 700.0); });

    if (scale == "Bark")
        return share ([] (double f) { return 26.81 * f / (f + 1960.0); });

    if (scale == "ERB")
        return share ([] (double f) { return std::log10 (1.0 + 0.00437 * f); });

    // All frequencies below 50 Hz share the height of one octave.
    const auto octaves = std::log2 (rate / 2 / 50.0);
    return (1.0 + std::log2 (hz / 50.0)) / (1.0 + octaves);
}

class OrloRenderScales : public OrloRender, public testing::WithParamInterface<std::tuple<const char*, const char*>>
{
};

TEST_P (OrloRenderScales, ASineLiesOnItsRow)
{
    const auto& [scale, mode] = GetParam();
    const auto sine = makeSine (1000.0, 0.5f, 20000, rate);
    writeInput ({ sine, sine });

    ASSERT_EQ (render ({ "--freqScale", scale, "--mode", mode, "--height", "800" }).exitCode, 0);
    const auto expected = std::round ((1.0 - positionOnScale (scale, 1000.0)) * 799.0);

    // In Classic each row shows whole bins, and at the top a row covers several of them.
    EXPECT_NEAR (findBrightestRow (readPng (picture)), expected, juce::String (mode) == "Classic" ? 2 : 1);
}

INSTANTIATE_TEST_SUITE_P (All,
                          OrloRenderScales,
                          testing::Combine (testing::Values ("Linear", "Log", "Mel", "Bark", "ERB"),
                                            testing::Values ("Classic", "Enhanced")));

class OrloRenderFormats : public OrloRender,
                          public testing::WithParamInterface<std::tuple<std::pair<const char*, int>, int>>
{
};

TEST_P (OrloRenderFormats, AToneHasItsLevelInEveryFormat)
{
    const auto& [format, numChannels] = GetParam();
    const auto name = juce::String ("in.") + format.first;
    writeInput (Channels (size_t (numChannels), makeSine (3000.0, 0.1f, 30000, rate)), format.second, name);

    const auto array = renderLevels ({ "--height=300", "--mode=Classic", "--freqScale=Linear" }, name);
    ASSERT_EQ (array.rows, 300);
    ASSERT_EQ (array.columns, (30000 + 162) / 163);

    float loudest = 0.0f;
    int row = 0;

    for (int y = 0; y < array.rows; ++y)
        if (array.get (y, array.columns / 2) > loudest)
        {
            loudest = array.get (y, array.columns / 2);
            row = y;
        }

    // -20 dB on a scale from -100 dB. Between two bins a Hann window reads up to 1.4 dB less; Ogg is lossy, too.
    EXPECT_NEAR (loudest, 0.8f, 0.025f);
    EXPECT_NEAR (row, std::round ((1.0 - 3000.0 / 22050.0) * 299.0), 1);
}

INSTANTIATE_TEST_SUITE_P (All,
                          OrloRenderFormats,
                          testing::Combine (testing::Values (std::pair ("wav", 16),
                                                             std::pair ("wav", 24),
                                                             std::pair ("wav", 32),
                                                             std::pair ("aiff", 16),
                                                             std::pair ("flac", 16),
                                                             std::pair ("ogg", 16)),
                                            testing::Values (1, 2, 6)));

TEST_F (OrloRender, ChannelsOutOfPhaseAreBlack)
{
    const auto left = makeSine (1000.0, 0.5f, 20000, rate);
    const auto right = makeSine (1000.0, -0.5f, 20000, rate);
    writeInput ({ left, right }, 32);

    const auto array = renderLevels ({ "--colourMap=viridis", "--height=100" });
    EXPECT_EQ (*std::max_element (array.values.begin(), array.values.end()), 0.0f);

    const auto image = readPng (picture);

    for (int y = 0; y < image.getHeight(); ++y)
        for (int x = 0; x < image.getWidth(); ++x)
            ASSERT_EQ (image.getPixelAt (x, y).getARGB(), 0xff000000u);
}

TEST_F (OrloRender, TheSameInputGivesTheSameBytes)
{
    writeInput ({ makeQuietNoise (50000), makeQuietNoise (50000, 2) });

    for (const auto* const mode : { "Classic", "Enhanced" })
    {
        juce::MemoryBlock pictures[2], arrays[2];

        for (int i = 0; i < 2; ++i)
        {
            juce::ignoreUnused (renderLevels ({ "--mode", mode }));
            ASSERT_TRUE (picture.loadFileAsData (pictures[i]) && levels.loadFileAsData (arrays[i]));
            picture.deleteFile();
            levels.deleteFile();
        }

        EXPECT_TRUE (pictures[0] == pictures[1]);
        EXPECT_TRUE (arrays[0] == arrays[1]);
    }
}

TEST_F (OrloRender, AnyNumberOfThreadsGivesTheSameBytes)
{
    writeInput ({ makeQuietNoise (80000), makeQuietNoise (80000, 2) });

    for (const juce::StringArray& options :
         { juce::StringArray { "--mode=Classic" }, { "--mode=Enhanced", "--width=100" }, { "--width=3" } })
    {
        juce::MemoryBlock onePicture, oneArray;

        for (const auto* const threads : { "1", "2", "5" })
        {
            auto withThreads = options;
            withThreads.addArray ({ "--threads", threads });
            juce::ignoreUnused (renderLevels (withThreads));

            juce::MemoryBlock pictureBytes, array;
            ASSERT_TRUE (picture.loadFileAsData (pictureBytes) && levels.loadFileAsData (array));

            if (oneArray.isEmpty())
            {
                onePicture = pictureBytes;
                oneArray = array;
            }

            EXPECT_TRUE (pictureBytes == onePicture) << options.joinIntoString (" ") << " " << threads;
            EXPECT_TRUE (array == oneArray) << options.joinIntoString (" ") << " " << threads;
        }
    }
}

TEST_F (OrloRender, MergesTheColumnsByMaximumIfAWidthIsGiven)
{
    writeInput ({ makeQuietNoise (50000) });

    for (const auto* const mode : { "Classic", "Enhanced" })
    {
        const auto all = renderLevels ({ "--mode", mode, "--height=200" });
        const auto merged = renderLevels ({ "--mode", mode, "--height=200", "--width=50" });
        ASSERT_EQ (all.columns, (50000 + 162) / 163);
        ASSERT_EQ (merged.columns, 50);
        EXPECT_EQ (readPng (picture).getWidth(), 50);

        for (int y = 0; y < 200; ++y)
        {
            std::vector<float> expected (50);

            for (int x = 0; x < all.columns; ++x)
                expected[size_t (x * 50 / all.columns)] =
                    std::max (expected[size_t (x * 50 / all.columns)], all.get (y, x));

            for (int x = 0; x < 50; ++x)
                ASSERT_EQ (merged.get (y, x), expected[size_t (x)]) << mode << " " << x << " " << y;
        }
    }
}

TEST_F (OrloRender, APictureIsNotWiderThanItsNumberOfColumns)
{
    writeInput ({ makeQuietNoise (16300) });
    EXPECT_EQ (renderLevels ({ "--width=4096" }).columns, 100);
    EXPECT_EQ (readPng (picture).getBounds(), juce::Rectangle<int> (100, 1024));
}

TEST_F (OrloRender, ShowsTheLevelsInTheColoursOfTheMap)
{
    writeInput ({ makeQuietNoise (20000) });
    const auto array = renderLevels ({ "--height=100", "--mode=Classic", "--colourMap=turbo", "--floor=-140" });
    const auto image = readPng (picture);
    const ColourMap map (9);
    ASSERT_GT (*std::min_element (array.values.begin(), array.values.end()), 0.0f);
    ASSERT_EQ (image.getWidth(), array.columns);

    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < array.columns; ++x)
            ASSERT_EQ (image.getPixelAt (x, y).getARGB(), map.pixelForLevel (array.get (y, x)));
}

TEST_F (OrloRender, ASectionHasTheRequestedLength)
{
    // A click every second.
    Samples clicks (5 * 44100);

    for (size_t i = 0; i < 5; ++i)
        clicks[i * 44100 + 22050] = 0.9f;

    writeInput ({ clicks });
    const auto array = renderLevels ({ "--start=1", "--duration=2", "--height=64", "--fftSize=256" });


    // A column is two hops of 80 samples.
    EXPECT_EQ (array.columns, (88200 + 159) / 160);

    std::vector<int> loud;

    for (int x = 0; x < array.columns; ++x)
    {
        float sum = 0.0f;

        for (int y = 0; y < array.rows; ++y)
            sum += array.get (y, x);

        if (sum > 10.0f)
            loud.push_back (x);
    }

    EXPECT_THAT (loud, testing::ElementsAre (22050 / 160, 66150 / 160));

    // A duration beyond the end of the file is cut there.
    EXPECT_EQ (renderLevels ({ "--start=4.5", "--duration=100" }).columns, (22050 + 162) / 163);
}

TEST_F (OrloRender, AcceptsFrequencyLimitsInHertz)
{
    writeInput ({ makeSine (1000.0, 0.5f, 20000, rate) });
    ASSERT_EQ (render ({ "--minFreq=500Hz", "--maxFreq=1500Hz", "--freqScale=Linear", "--height=501" }).exitCode, 0);
    EXPECT_NEAR (findBrightestRow (readPng (picture)), 250, 1);
}

TEST_F (OrloRender, DoubleResolutionHalvesTheTimeOfAColumn)
{
    writeInput ({ makeQuietNoise (44100) });
    const auto normal = renderLevels().columns;
    const auto twice = renderLevels ({ "--hiDPI", "2x" });
    EXPECT_NEAR (double (twice.columns) / normal, 2.0, 0.03);
    EXPECT_EQ (twice.rows, 1024);
}

TEST_F (OrloRender, ParametersWithoutAMeaningForStillPicturesChangeNothing)
{
    writeInput ({ makeQuietNoise (20000) });
    juce::MemoryBlock plain, loaded;
    ASSERT_EQ (render().exitCode, 0);
    ASSERT_TRUE (picture.loadFileAsData (plain));
    ASSERT_EQ (
        render (
            { "--freeze=On", "--drawMode=Scroll", "--ruler=On", "--keyboard=On", "--autoFreeze=On", "--internal=0.5" })
            .exitCode,
        0);
    ASSERT_TRUE (picture.loadFileAsData (loaded));
    EXPECT_TRUE (plain == loaded);
}

} // namespace
} // namespace mk::orlo::test
