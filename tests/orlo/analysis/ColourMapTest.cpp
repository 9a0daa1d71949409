// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ColourMap.h"

#include "orlo/analysis/ColourTables.h"
#include "orlo/parameters/ColourMapNames.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::orlo::test
{
namespace
{

struct KnownEntries
{
    const char* name;
    juce::uint32 first, middle, last;
};

// Entries 0, 128 and 255 of the maps that are stored whole.
constexpr KnownEntries knownEntries[] {
    { "turbo", 0x30123B, 0xA4FC3C, 0x7A0403 },      { "amber", 0x000000, 0xA64C27, 0xFBF357 },
    { "amethyst", 0x000000, 0x745CE1, 0xFFFFFF },   { "apple", 0x000000, 0x9F5F06, 0xFFFFFF },
    { "arctic", 0x000000, 0x3176C6, 0xFFFFFF },     { "bubblegum", 0x072238, 0xAE2DC6, 0xFCBDA6 },
    { "chroma", 0x000000, 0xBA441E, 0xFFFFFF },     { "cosmic", 0x000000, 0x4B56E5, 0x5FFDD0 },
    { "dusk", 0x000000, 0x6C5E27, 0xF1BFCA },       { "eclipse", 0x000000, 0x567269, 0xFEF255 },
    { "ember", 0x000000, 0xBA0D34, 0xF1E13E },      { "emerald", 0x000000, 0x2E772F, 0x77F7EE },
    { "fall", 0x24051D, 0xB86315, 0xFFFFFF },       { "flamingo", 0x000000, 0xCD0C5A, 0xFFFFFF },
    { "freeze", 0x000000, 0x2572E0, 0xFFFFFF },     { "gem", 0x410206, 0x884CE8, 0x44E9EE },
    { "ghostlight", 0x000000, 0x7B6566, 0xFEF255 }, { "gothic", 0x000000, 0xAD31C5, 0xFFFFFF },
    { "horizon", 0x0D340B, 0x5A8FD1, 0xFFFFFF },    { "jungle", 0x000000, 0x2C8706, 0xFFFFFF },
    { "lavender", 0x000000, 0x3B5C92, 0x77DB46 },   { "lilac", 0x000000, 0x82537C, 0x92FB7A },
    { "neon", 0xA70C03, 0x838FFD, 0x8EFE15 },       { "nuclear", 0x000000, 0x36753B, 0x97FC1A },
    { "ocean", 0x1C0041, 0x388B9C, 0xFFFFFF },      { "pepper", 0x3E0517, 0x966507, 0x2DF617 },
    { "rainforest", 0x000000, 0x0E8474, 0xFFFFFF }, { "sapphire", 0x000000, 0x4E62B2, 0xADEDE8 },
    { "savanna", 0x000000, 0x6E7821, 0xFFFFFF },    { "sepia", 0x000000, 0x905A5B, 0xE4F4DA },
    { "sunburst", 0x000000, 0xCB270D, 0xFFFFFF },   { "swamp", 0x000000, 0x178467, 0xFFFFFF },
    { "torch", 0x000000, 0xA45087, 0xFFFFFF },      { "toxic", 0x000000, 0x197569, 0xD9E691 },
    { "tree", 0x000000, 0x5D642F, 0x37F611 },       { "tropical", 0x900EA5, 0xCF8203, 0x44FCFC },
    { "voltage", 0x000000, 0x8252E5, 0xFFFFFF },
};

// The first and last colours of the maps that are stored as ten points. Both are exact entries of the map.
constexpr struct
{
    const char* name;
    juce::uint32 first, last;
} knownEnds[] {
    { "cubehelix", 0x000000, 0xFFFFFF }, { "viridis", 0x440154, 0xFDE724 }, { "plasma", 0x0C0786, 0xEFF821 },
    { "inferno", 0x000003, 0xFCFEA4 },   { "magma", 0x000003, 0xFBFCBF },   { "cividis", 0x00224D, 0xFDE737 },
    { "rocket", 0x020419, 0xFAEADC },    { "mako", 0x0B0305, 0xDEF4E4 },
};

// In the order of the parameter's values, since sessions and presets store these values.
constexpr const char* namesInOrder[] {
    "gray",    "cubehelix",  "viridis", "plasma",     "inferno",  "magma",    "cividis",   "rocket",
    "mako",    "turbo",      "amber",   "amethyst",   "apple",    "arctic",   "bubblegum", "chroma",
    "cosmic",  "dusk",       "eclipse", "ember",      "emerald",  "fall",     "flamingo",  "freeze",
    "gem",     "ghostlight", "gothic",  "horizon",    "jungle",   "lavender", "lilac",     "neon",
    "nuclear", "ocean",      "pepper",  "rainforest", "sapphire", "savanna",  "sepia",     "sunburst",
    "swamp",   "torch",      "toxic",   "tree",       "tropical", "voltage",
};

[[nodiscard]] unsigned indexOf (const juce::String& name)
{
    const auto& names = colourMapNames;
    return unsigned (std::find (names.begin(), names.end(), name) - names.begin());
}

[[nodiscard]] juce::uint32 rgb (const juce::Colour& colour) { return colour.getARGB() & 0xffffff; }

TEST (ColourMap, EveryMapHas256OpaqueEntries)
{
    for (unsigned i = 0; i < colourTables::numMaps; ++i)
    {
        const ColourMap map (i);
        ASSERT_EQ (map.getColours().size(), 256);
        ASSERT_EQ (map.getPixels().size(), 256);
        EXPECT_EQ (map.getMapIndex(), i);

        for (int entry = 0; entry < 256; ++entry)
        {
            EXPECT_EQ (map.getColours()[entry].getAlpha(), 0xff);
            EXPECT_EQ (map.getPixels()[entry], map.getColours()[entry].getARGB());
        }
    }
}

TEST (ColourMap, StoredMapsHaveTheirKnownEntries)
{
    for (const auto& known : knownEntries)
    {
        const ColourMap map (indexOf (known.name));
        EXPECT_EQ (rgb (map.getColours()[0]), known.first) << known.name;
        EXPECT_EQ (rgb (map.getColours()[128]), known.middle) << known.name;
        EXPECT_EQ (rgb (map.getColours()[255]), known.last) << known.name;
    }
}

TEST (ColourMap, GrayIsAPerceptuallyEvenRampAndNotALinearOne)
{
    const auto list = ColourMap::getColourList (0);
    ASSERT_EQ (list.size(), 2560);

    constexpr juce::uint32 expected[] { 0x000000, 0x131313, 0x2C2B2B, 0x434242, 0x5A5959, 0x717171,
                                        0x8A8989, 0xA4A4A3, 0xC0C0C0, 0xDEDEDE, 0xFFFFFF };

    for (int i = 0; i < 10; ++i)
        EXPECT_EQ (rgb (list[256 * i]), expected[i]);

    EXPECT_EQ (rgb (list[2559]), expected[10]);

    // The middle of the ramp is 717171, not 808080. Entry 128 of 256 is slightly above the middle.
    EXPECT_EQ (rgb (ColourMap::makeGradient (0).getColourAtPosition (0.5)), 0x717171u);
    EXPECT_EQ (ColourMap (0).pixelForLevel (0.5f), 0xff727272);
}

TEST (ColourMap, NamesAreInTheOrderOfTheParametersValues)
{
    const auto& names = colourMapNames;
    ASSERT_EQ (names.size(), std::size (namesInOrder));

    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_STREQ (names[i], namesInOrder[i]) << i;
}

TEST (ColourMap, TenPointMapsKeepTheirEnds)
{
    for (const auto& known : knownEnds)
    {
        const auto index = indexOf (known.name);
        ASSERT_LT (index, colourTables::numMaps) << known.name;
        const auto list = ColourMap::getColourList (index);
        const ColourMap map (index);
        ASSERT_EQ (list.size(), 10) << known.name;
        EXPECT_EQ (rgb (list.getFirst()), known.first) << known.name;
        EXPECT_EQ (rgb (list.getLast()), known.last) << known.name;
        EXPECT_EQ (rgb (map.getColours()[0]), known.first) << known.name;
        EXPECT_EQ (rgb (map.getColours()[255]), known.last) << known.name;
    }
}

TEST (ColourMap, AnIndexBeyondTheListGivesMagma)
{
    const auto magma = ColourMap::getColourList (colourTables::magmaIndex);
    EXPECT_EQ (rgb (magma.getFirst()), 0x000003u);
    EXPECT_EQ (rgb (magma.getLast()), 0xFBFCBFu);
    EXPECT_TRUE (ColourMap::getColourList (46) == magma);
    EXPECT_TRUE (ColourMap::getColourList (1000) == magma);
}

TEST (ColourMap, LevelsRoundToTheNearestEntry)
{
    const ColourMap map (9);
    EXPECT_EQ (map.pixelForLevel (1.0f), map.getPixels()[255]);
    EXPECT_EQ (map.pixelForLevel (0.5f), map.getPixels()[128]);
    EXPECT_EQ (map.pixelForLevel (1.0e-6f), map.getPixels()[0]);
    EXPECT_EQ (map.pixelForLevel (7.0f), map.getPixels()[255]);
    EXPECT_EQ (map.pixelForLevel (std::numeric_limits<float>::infinity()), map.getPixels()[255]);
    EXPECT_EQ (map.pixelForLevel (std::numeric_limits<float>::quiet_NaN()), map.getPixels()[0]);
}

TEST (ColourMap, TheGradientHasEveryStoredColourAtItsPosition)
{
    const auto list = ColourMap::getColourList (3);
    const auto gradient = ColourMap::makeGradient (3);

    for (int i = 0; i < list.size(); ++i)
        EXPECT_EQ (gradient.getColourAtPosition (double (i) / 9.0).getARGB(), list[i].getARGB()) << i;

    EXPECT_EQ (gradient.point1, juce::Point<float> (0.0f, 0.0f));
    EXPECT_EQ (gradient.point2, juce::Point<float> (0.0f, 1.0f));
}

} // namespace
} // namespace mk::orlo::test
