// SPDX-License-Identifier: AGPL-3.0-or-later
// The pictures that the program makes with --exact.
#include "OrloRenderFixture.h"

#include "orlo/analysis/ColourMap.h"
#include "orlo/stills/HistorySource.h"
#include "orlo/stills/MakeStill.h"

#include <array>
#include <utility>

namespace mk::orlo::test
{
namespace
{
constexpr int length = 50000;

class OrloRenderExact : public OrloRender
{
protected:
    /** The picture of a range of the kept sound, as the window shows it. */
    [[nodiscard]] std::shared_ptr<const StillPicture> makePicture (const std::shared_ptr<HistorySource>& source,
                                                                   std::int64_t start,
                                                                   std::int64_t numSamples,
                                                                   bool enhanced) const
    {
        StillRequest request;
        request.source = source;
        request.start = double (start);
        request.length = double (numSamples);
        request.width = 311;
        request.height = 203;
        request.hop = { 1024, rate, 40.0f, false, enhanced };
        request.scaleType = 2;
        return makeStill (request, 2, [] (double) { return true; });
    }

    /** Expects the program's picture to have the pixels of the still. */
    void expectPixels (const StillPicture& still, float floorDb, float ceilingDb) const
    {
        const auto expected = still.paint ({ floorDb, ceilingDb, std::make_shared<const ColourMap> (2u) });
        const auto image = readPng (picture);
        ASSERT_EQ (image.getBounds(), expected.getBounds());

        for (int y = 0; y < image.getHeight(); ++y)
            for (int x = 0; x < image.getWidth(); ++x)
                ASSERT_EQ (image.getPixelAt (x, y), expected.getPixelAt (x, y)) << x << " " << y;
    }

    /** Renders "in.wav" with the still's settings and expects the still. */
    void expectStill (const StillPicture& still, bool enhanced, const juce::StringArray& moreOptions = {}) const
    {
        for (const auto& [floorDb, ceilingDb] : { std::pair { -100.0f, 0.0f }, { -70.0f, -40.0f }, { -20.0f, -90.0f } })
        {
            juce::StringArray options { "--exact",        "--width=311",     "--height=203",
                                        "--fftSize=1024", "--freqScale=Mel", "--colourMap=viridis" };
            options.add (juce::String ("--mode=") + (enhanced ? "Enhanced" : "Classic"));
            options.add ("--floor=" + juce::String (floorDb));
            options.add ("--ceiling=" + juce::String (ceilingDb));
            options.addArray (moreOptions);

            const auto outcome = render (options);
            ASSERT_EQ (outcome.exitCode, 0) << outcome.text;
            expectPixels (still, floorDb, ceilingDb);
        }
    }

    /** The channels of a part of what is kept, for a file. */
    [[nodiscard]] Channels getChannels (std::int64_t start, std::int64_t end) const
    {
        Channels channels (2, Samples (size_t (end - start)));

        for (int channel = 0; channel < 2; ++channel)
            EXPECT_TRUE (sound->read (channel, start, channels[size_t (channel)].data(), int (end - start)));

        return channels;
    }

    const std::shared_ptr<KeptSound> sound = []
    {
        auto kept = std::make_shared<KeptSound> (rate, 2, length);
        const auto left = makeLinearChirp (200.0, 4000.0, 0.4f, length, rate);
        const auto right = makeQuietNoise (length);
        const std::array<const float*, 2> channels { left.data(), right.data() };
        kept->push (channels.data(), 2, length, {});
        return kept;
    }();
};

TEST_F (OrloRenderExact, TheSavedSoundGivesThePixelsOfTheStill)
{
    writeInput (getChannels (0, length), 32);

    for (const auto enhanced : { false, true })
        expectStill (*makePicture (std::make_shared<HistorySource> (sound), 0, length, enhanced), enhanced);
}

TEST_F (OrloRenderExact, ARangeOfTheSavedSoundGivesThePixelsOfTheStillAtEveryZoom)
{
    writeInput (getChannels (0, length), 32);

    for (const auto enhanced : { false, true })
        for (const auto numSamples : { 77, 1000, 12345 })
        {
            constexpr auto start = 20011;
            const auto still = makePicture (std::make_shared<HistorySource> (sound), start, numSamples, enhanced);
            expectStill (
                *still,
                enhanced,
                { "--start=" + juce::String (start / rate, 9), "--duration=" + juce::String (numSamples / rate, 9) });
        }
}

TEST_F (OrloRenderExact, TheSoundOfARangeAloneGivesThePixelsOfTheStillOfThatRangeAlone)
{
    constexpr std::int64_t start = 20011, end = 32000;
    writeInput (getChannels (start, end), 32);

    for (const auto enhanced : { false, true })
    {
        const auto source = std::make_shared<HistorySource> (sound, start, end);
        expectStill (*makePicture (source, start, end - start, enhanced), enhanced);
    }
}

TEST_F (OrloRenderExact, ThePictureIsAsWideAsItIsAskedToBe)
{
    writeInput ({ makeQuietNoise (100) });
    ASSERT_EQ (render ({ "--exact", "--width=1000", "--height=30" }).exitCode, 0);
    EXPECT_EQ (readPng (picture).getBounds(), juce::Rectangle<int> (1000, 30));
}

TEST_F (OrloRenderExact, NeedsAWidthThatIsNotTooLarge)
{
    writeInput ({ makeQuietNoise (100) });
    expectFailure (render ({ "--exact" }), 2, "--exact needs --width");
    expectFailure (render ({ "--exact", "--width=30000", "--height=30000" }), 2, "too large");
}

TEST_F (OrloRenderExact, ATruncatedFileIsAnError)
{
    writeInput ({ makeQuietNoise (200000) }, 16, "in.flac");
    const auto file = folder.getFile ("in.flac");
    truncateFile (file, file.getSize() / 2);
    expectFailure (render ({ "--exact", "--width=100" }, "in.flac"), 1, "is truncated");
}

} // namespace
} // namespace mk::orlo::test
