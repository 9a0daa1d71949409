// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/RulerLabels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{

using testing::ElementsAre;

[[nodiscard]] std::vector<RulerLabel> place (float minHz, float maxHz, int type, int height, float fontHeight)
{
    FrequencyScale scale;
    scale.setRange (minHz, maxHz);
    scale.setScaleType (type);
    return placeRulerLabels (buildRulerTicks (minHz, maxHz), scale, 50, height, fontHeight);
}

[[nodiscard]] juce::String toText (const std::vector<RulerLabel>& labels)
{
    juce::StringArray texts;

    for (const auto& label : labels)
        texts.add (label.text);

    return texts.joinIntoString (" ");
}

//==============================================================================
TEST (RulerTicks, AreTheSeriesAndBothEndsOfTheWholeRange)
{
    EXPECT_THAT (buildRulerTicks (0.0f, 22050.0f),
                 ElementsAre (0.0f,
                              1.0f,
                              2.0f,
                              5.0f,
                              10.0f,
                              20.0f,
                              50.0f,
                              100.0f,
                              200.0f,
                              500.0f,
                              1000.0f,
                              2000.0f,
                              5000.0f,
                              10000.0f,
                              20000.0f,
                              22050.0f));
}

TEST (RulerTicks, AreOnlyTheEndsWhereTheSeriesHasNoMember)
{
    EXPECT_THAT (buildRulerTicks (1000.0f, 2000.0f), ElementsAre (1000.0f, 2000.0f));
    EXPECT_THAT (buildRulerTicks (440.0f, 450.0f), ElementsAre (440.0f, 450.0f));
    EXPECT_THAT (buildRulerTicks (0.0f, 0.5f), ElementsAre (0.0f, 0.5f));
}

TEST (RulerTicks, EndsThatBelongToTheSeriesAppearOnce)
{
    EXPECT_THAT (buildRulerTicks (10.0f, 100.0f), ElementsAre (10.0f, 20.0f, 50.0f, 100.0f));
}

TEST (RulerTicks, AnEmptyRangeHasNone)
{
    EXPECT_TRUE (buildRulerTicks (440.0f, 440.0f).empty());
    EXPECT_TRUE (buildRulerTicks (450.0f, 440.0f).empty());
    EXPECT_TRUE (buildRulerTicks (0.0f, 0.0f).empty());
    EXPECT_TRUE (buildRulerTicks (std::numeric_limits<float>::quiet_NaN(), 440.0f).empty());
    EXPECT_TRUE (buildRulerTicks (0.0f, std::numeric_limits<float>::quiet_NaN()).empty());
}

//==============================================================================
TEST (RulerText, IsWholeHertzUpToTheKilohertz)
{
    EXPECT_EQ (formatRulerFrequency (0.0f), "0");
    EXPECT_EQ (formatRulerFrequency (50.0f), "50");
    EXPECT_EQ (formatRulerFrequency (439.6f), "440");
    EXPECT_EQ (formatRulerFrequency (994.9f), "995");
    EXPECT_EQ (formatRulerFrequency (995.0f), "1k");
}

TEST (RulerText, HasADecimalOnlyIfItIsNotZero)
{
    EXPECT_EQ (formatRulerFrequency (1000.0f), "1k");
    EXPECT_EQ (formatRulerFrequency (1040.0f), "1k");
    EXPECT_EQ (formatRulerFrequency (1060.0f), "1.1k");
    EXPECT_EQ (formatRulerFrequency (1500.0f), "1.5k");
    EXPECT_EQ (formatRulerFrequency (10000.0f), "10k");
    EXPECT_EQ (formatRulerFrequency (17600.0f), "17.6k");
    EXPECT_EQ (formatRulerFrequency (19980.0f), "20k");
    EXPECT_EQ (formatRulerFrequency (22050.0f), "22.1k");
    EXPECT_EQ (formatRulerFrequency (96000.0f), "96k");

    for (int hz = 995; hz < 200000; ++hz)
        EXPECT_FALSE (formatRulerFrequency (float (hz)).contains (".0")) << hz;
}

//==============================================================================
TEST (RulerLabels, AreAtTheirFrequenciesOnALinearRange)
{
    // At a font height of 20 the texts' boxes are 40 high and stay clear of 40 at the top and 80 at the bottom.
    const auto labels = place (0.0f, 20000.0f, FrequencyScale::linear, 1000, 20.0f);
    EXPECT_EQ (toText (labels), "0 2k 5k 10k 20k");
    ASSERT_EQ (labels.size(), 5u);

    EXPECT_EQ (labels[0].area, (juce::Rectangle { 1, 960, 49, 40 })) << "moved in from the bottom";
    EXPECT_EQ (labels[1].area, (juce::Rectangle { 1, 880, 49, 40 }));
    EXPECT_EQ (labels[2].area, (juce::Rectangle { 1, 730, 49, 40 }));
    EXPECT_EQ (labels[3].area, (juce::Rectangle { 1, 480, 49, 40 }));
    EXPECT_EQ (labels[4].area, (juce::Rectangle { 1, 0, 49, 40 })) << "moved in from the top";
    EXPECT_EQ (labels[3].frequency, 10000.0f);
}

TEST (RulerLabels, KeepClearOfTheMaximum)
{
    // 20k lies 93 pixels below the top of a linear ruler 1000 high, so its box begins at 93 minus the font height.
    EXPECT_TRUE (toText (place (0.0f, 22050.0f, FrequencyScale::linear, 1000, 20.0f)).endsWith ("10k 20k 22.1k"));
    EXPECT_TRUE (toText (place (0.0f, 22050.0f, FrequencyScale::linear, 1000, 30.5f)).endsWith ("10k 20k 22.1k"));
    EXPECT_TRUE (toText (place (0.0f, 22050.0f, FrequencyScale::linear, 1000, 31.5f)).endsWith ("5k 10k 22.1k"));
}

TEST (RulerLabels, KeepClearOfTheMinimumByFourFontHeights)
{
    // The box of 1k begins at 930 in a ruler 1000 high.
    EXPECT_TRUE (toText (place (0.0f, 20000.0f, FrequencyScale::linear, 1000, 16.5f)).startsWith ("0 1k 2k"));
    EXPECT_TRUE (toText (place (0.0f, 20000.0f, FrequencyScale::linear, 1000, 17.0f)).startsWith ("0 2k"));
}

TEST (RulerLabels, DoNotExistForAnEmptyRange) { EXPECT_TRUE (place (440.0f, 440.0f, 0, 1000, 20.0f).empty()); }

TEST (RulerLabels, AreTheEndsOfANarrowRange)
{
    EXPECT_EQ (toText (place (440.0f, 450.0f, FrequencyScale::log, 1000, 20.0f)), "440 450");
    EXPECT_EQ (toText (place (1000.0f, 2000.0f, FrequencyScale::mel, 1000, 20.0f)), "1k 2k");
}

TEST (RulerLabels, AreAllMembersOfTheSeriesThatAreClearOfBothEnds)
{
    const auto place100To100k = [] (int height, float fontHeight)
    { return toText (place (100.0f, 100000.0f, FrequencyScale::log, height, fontHeight)); };

    EXPECT_EQ (place100To100k (300, 12.0f), "100 500 1k 2k 5k 10k 20k 100k");
    EXPECT_EQ (place100To100k (210, 20.0f), "100 1k 2k 5k 10k 100k") << "labels of the series may touch";
    EXPECT_EQ (place100To100k (60, 12.0f), "100 100k");
}

TEST (RulerLabels, ShowBothEndsEvenInARulerTooLowForTwoTexts)
{
    const auto labels = place (0.0f, 20000.0f, 0, 10, 8.0f);
    ASSERT_EQ (toText (labels), "0 20k");
    EXPECT_EQ (labels[0].area, (juce::Rectangle { 1, 0, 49, 10 })) << "no box leaves the ruler";
}

//==============================================================================
struct Range
{
    float min, max;
};

constexpr Range ranges[] { { 0.0f, 22050.0f },     { 0.0f, 96000.0f },    { 20.0f, 20000.0f }, { 0.0f, 40.0f },
                           { 30.0f, 60.0f },       { 100.0f, 600.0f },    { 440.0f, 450.0f },  { 50.0f, 5000.0f },
                           { 11025.0f, 22050.0f }, { 0.0f, 1.0f },        { 0.0f, 2205.0f },   { 21990.0f, 22050.0f },
                           { 994.0f, 1006.0f },    { 2000.0f, 200000.0f } };

void expectTidyLabels (const FrequencyScale& scale, int height, float fontHeight)
{
    const auto max = scale.getMaxFrequency();
    const auto ticks = buildRulerTicks (scale.getMinFrequency(), max);
    const auto labels = placeRulerLabels (ticks, scale, 50, height, fontHeight);

    ASSERT_FALSE (labels.empty());
    ASSERT_EQ (labels.back().frequency, max);
    ASSERT_GE (labels.size(), 2u);

    for (size_t i = 0; i < labels.size(); ++i)
    {
        ASSERT_TRUE ((juce::Rectangle { 50, height }.contains (labels[i].area)));
        ASSERT_GE (float (labels[i].area.getHeight()), fontHeight - 1.0f);

        if (i == 0)
            continue;

        ASSERT_GT (labels[i].frequency, labels[i - 1].frequency);
        ASSERT_LE (labels[i].area.getY(), labels[i - 1].area.getY());
    }
}

TEST (RulerLabels, AscendAndNeverLeaveTheRulerAtAnySizeScaleOrRange)
{
    FrequencyScale scale;

    for (const auto& range : ranges)
    {
        scale.setRange (range.min, range.max);

        for (int type = 0; type < FrequencyScale::numTypes; ++type)
        {
            scale.setScaleType (type);

            for (int height = 1; height <= 2112; height = height < 300 ? height + 1 : height + 151)
                for (const auto textHeight : { 15.0f, 25.0f, 52.8f })
                {
                    SCOPED_TRACE (testing::Message() << range.min << " to " << range.max << " type " << type
                                                     << " height " << height << " text " << textHeight);
                    ASSERT_NO_FATAL_FAILURE (
                        expectTidyLabels (scale, height, juce::jmin (textHeight, float (height)) * 0.8f));
                }
        }
    }
}

TEST (RulerLabels, AreWithinAPixelOfTheirFrequencyInTheMiddle)
{
    for (int type = 0; type < FrequencyScale::numTypes; ++type)
    {
        FrequencyScale scale;
        scale.setRange (20.0f, 22050.0f);
        scale.setScaleType (type);
        const auto labels = placeRulerLabels (buildRulerTicks (20.0f, 22050.0f), scale, 50, 1000, 20.0f);
        ASSERT_GT (labels.size(), 3u);

        for (size_t i = 1; i + 1 < labels.size(); ++i)
        {
            const auto row = (1.0f - scale.positionForFrequency (labels[i].frequency)) * 1000.0f;
            EXPECT_NEAR (labels[i].area.toFloat().getCentreY(), row, 1.0f) << labels[i].text;
        }
    }
}

} // namespace
} // namespace mk::orlo::test
