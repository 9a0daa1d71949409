// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/StillPicture.h"

#include "MemorySource.h"
#include "orlo/analysis/Decibels.h"
#include "orlo/stills/IndexedPicture.h"

#include <gtest/gtest.h>

#include <utility>


namespace mk::orlo::test
{
namespace
{

/** A picture of all levels from below silence to beyond full scale. */
[[nodiscard]] StillPicture makeRampPicture()
{
    StillRequest request;
    request.width = 1301;
    request.height = 3;
    request.length = 1.0;
    const auto memory = std::make_shared<StillMemory>();
    StillPicture picture (request, false, *memory);

    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < request.width; ++x)
            picture.getRow (y)[size_t (x)] = silenceDb + float (x) * 0.125f + float (y) * 0.011f;

    return picture;
}

/** The pictures of files are coloured by another code, pixel by pixel. */
TEST (StillPicture, IsColouredAsThePicturesOfFilesAre)
{
    const auto picture = makeRampPicture();

    for (const auto& [floorDb, ceilingDb] :
         { std::pair { -100.0f, 0.0f }, { -140.0f, 0.0f }, { -20.0f, -90.0f }, { -60.0f, -59.0f }, { -50.0f, -50.0f } })
        for (const auto map : { 0u, 7u })
        {
            const StillColours colours { floorDb, ceilingDb, std::make_shared<const ColourMap> (map) };
            const auto image = picture.paint (colours);
            const auto expected =
                paintPicture (picture.getLevels (floorDb, ceilingDb), *colours.map, floorDb > ceilingDb, 1);
            ASSERT_EQ (image.getWidth(), expected.width);

            for (int y = 0; y < expected.height; ++y)
                for (int x = 0; x < expected.width; ++x)
                    ASSERT_EQ (image.getPixelAt (x, y),
                               expected.colours[expected.pixels[size_t (y) * size_t (expected.width) + size_t (x)]])
                        << floorDb << " " << ceilingDb << " " << x << " " << y;
        }
}

TEST (StillPicture, PaintsTheRowsItIsAskedForInBothFormats)
{
    const auto picture = makeRampPicture();
    const StillColours colours { -100.0f, 0.0f, std::make_shared<const ColourMap> (2u) };
    const auto whole = picture.paint (colours);

    for (const auto format : { juce::Image::RGB, juce::Image::ARGB })
    {
        juce::Image image (format, picture.getWidth(), picture.getHeight(), true, juce::SoftwareImageType());

        {
            juce::Image::BitmapData data (image, juce::Image::BitmapData::readWrite);
            picture.paint (colours, data, 1, 2);
        }

        EXPECT_EQ (image.getPixelAt (1000, 0).getBrightness(), 0.0f);
        EXPECT_EQ (image.getPixelAt (1000, 1), whole.getPixelAt (1000, 1));
        EXPECT_EQ (image.getPixelAt (1000, 2).getBrightness(), 0.0f);
    }
}

TEST (StillPicture, IsTheSameForRequestsThatShowTheSame)
{
    StillRequest request;
    request.length = 100.0;
    request.width = 10;
    request.height = 20;
    EXPECT_TRUE (showsTheSame (request, request));

    const auto differs = [&request] (auto change)
    {
        auto other = request;
        change (other);
        return ! showsTheSame (request, other) && ! showsTheSame (other, request);
    };

    EXPECT_TRUE (differs ([] (auto& other) { other.start += 1.0e-9; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.length += 1.0e-9; }));
    EXPECT_TRUE (differs ([] (auto& other) { ++other.width; }));
    EXPECT_TRUE (differs ([] (auto& other) { ++other.height; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.hop.windowSize *= 2; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.hop.sampleRate = 48000.0; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.hop.speed = 41.0f; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.hop.doubleResolution = true; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.hop.enhanced = false; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.minFreqFraction = 0.01f; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.maxFreqFraction = 0.99f; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.scaleType = 1; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.pointsKept = PointsKept::lines; }));
    EXPECT_TRUE (differs ([] (auto& other) { other.otherSource = std::make_shared<MemorySource> (Samples {}); }));
    EXPECT_TRUE (differs ([] (auto& other) { other.source = std::make_shared<MemorySource> (Samples {}); }));
}

} // namespace
} // namespace mk::orlo::test
