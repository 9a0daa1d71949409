// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/display/TooltipLine.h"

#include "tests/support/Sanitizers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mk::pluginCore::test
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

[[nodiscard]] TipStyle makeStyle (float height)
{
    const juce::Font font { juce::FontOptions { height } };
    return { font, font.boldened(), juce::Colours::grey, juce::Colours::white };
}

[[nodiscard]] float getWidth (const juce::AttributedString& line)
{
    auto width = 0.0f;

    for (int i = 0; i < line.getNumAttributes(); ++i)
    {
        const auto& attribute = line.getAttribute (i);
        width += juce::GlyphArrangement::getStringWidth (
            attribute.font, line.getText().substring (attribute.range.getStart(), attribute.range.getEnd()));
    }

    return width;
}

TEST (TooltipLine, SplitsATipAtItsAsterisks)
{
    EXPECT_THAT (splitTip ("plain"), ElementsAre (TipRun { "plain", false }));
    EXPECT_THAT (splitTip ("**Freeze** holds"), ElementsAre (TipRun { "Freeze", true }, TipRun { " holds", false }));
    EXPECT_THAT (
        splitTip ("the **Speed** of **it**"),
        ElementsAre (
            TipRun { "the ", false }, TipRun { "Speed", true }, TipRun { " of ", false }, TipRun { "it", true }));
}

TEST (TooltipLine, SurvivesAsterisksInOddPlaces)
{
    EXPECT_THAT (splitTip (""), IsEmpty());
    EXPECT_THAT (splitTip ("**"), IsEmpty());
    EXPECT_THAT (splitTip ("****"), IsEmpty());
    EXPECT_THAT (splitTip ("a ** b"), ElementsAre (TipRun { "a ", false }, TipRun { " b", true }));
    EXPECT_THAT (splitTip ("2 * 3"), ElementsAre (TipRun { "2 * 3", false }));
    EXPECT_THAT (splitTip ("***x"), ElementsAre (TipRun { "*x", true }));
}

TEST (TooltipLine, GivesEachWeightItsFaceAndColour)
{
    const auto style = makeStyle (20.0f);
    const auto line = makeTooltipLine (splitTip ("the **Speed** of it"), style, 1000.0f);
    EXPECT_EQ (line.getText(), "the Speed of it");
    ASSERT_EQ (line.getNumAttributes(), 3);

    EXPECT_EQ (line.getAttribute (0).colour, juce::Colours::grey);
    EXPECT_FALSE (line.getAttribute (0).font.isBold());
    EXPECT_EQ (line.getAttribute (1).range, juce::Range<int> (4, 9));
    EXPECT_EQ (line.getAttribute (1).colour, juce::Colours::white);
    EXPECT_TRUE (line.getAttribute (1).font.isBold());
    EXPECT_EQ (line.getAttribute (2).colour, juce::Colours::grey);
    EXPECT_FLOAT_EQ (line.getAttribute (2).font.getHorizontalScale(), 1.0f);
}

TEST (TooltipLine, IsNeverWiderThanItsRoom)
{
    const auto runs = splitTip ("**Auto-Pause** stops the picture whenever the transport of the host stops");
    const auto style = makeStyle (20.0f);
    const auto full = getWidth (makeTooltipLine (runs, style, 10000.0f));

    for (auto width = 0.0f; width < full + 10.0f; width += 3.7f * float (orlo::test::slowdown))
    {
        const auto line = makeTooltipLine (runs, style, width);
        ASSERT_LE (getWidth (line), width + 0.01f);

        if (width >= full)
        {
            ASSERT_EQ (getWidth (line), full);
        }
        else if (width >= full * 0.76f)
        {
            ASSERT_FALSE (line.getText().endsWith (juce::String::charToString (0x2026))) << "narrower letters suffice";
        }
        else if (width >= 40.0f && width < full * 0.74f)
        {
            ASSERT_TRUE (line.getText().endsWith (juce::String::charToString (0x2026)));
            ASSERT_GT (getWidth (line), width - 30.0f) << "no more is cut than necessary";
        }
    }
}

TEST (TooltipLine, KeepsTheWeightsWhenItLosesItsEnd)
{
    const auto line = makeTooltipLine (splitTip ("**Auto-Pause** stops the picture"), makeStyle (20.0f), 150.0f);
    ASSERT_GE (line.getNumAttributes(), 1);
    EXPECT_TRUE (line.getAttribute (0).font.isBold());
    EXPECT_TRUE (line.getText().startsWith ("Auto-P"));
}

TEST (TooltipLine, TextTakesHalfOfTheLineButStaysLegible)
{
    EXPECT_FLOAT_EQ (getTooltipTextHeight (50), 25.0f);
    EXPECT_FLOAT_EQ (getTooltipTextHeight (105), 52.5f);
    EXPECT_FLOAT_EQ (getTooltipTextHeight (15), 12.0f);
    EXPECT_FLOAT_EQ (getTooltipTextHeight (8), 8.0f);
    EXPECT_EQ (getTooltipTextArea ({ 0, 0, 500, 50 }), (juce::Rectangle { 12, 0, 476, 50 }));
}

} // namespace
} // namespace mk::pluginCore::test
