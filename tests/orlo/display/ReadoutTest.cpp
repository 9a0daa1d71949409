// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/Readout.h"

#include "orlo/display/NoteNames.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{

TEST (ReadoutText, CountsCentsFromTheConcertPitch)
{
    EXPECT_EQ (formatReadout (442.0, { 3, 442.0 }), "442.00Hz (A3)");
    EXPECT_EQ (formatReadout (440.0, { 5, 442.0 }), "440.00Hz (A5  -8cents)");
    EXPECT_EQ (formatReadout (440.0, { 3, 415.0 }), "440.00Hz (A#3 +1cents)");
    EXPECT_EQ (formatReadout (440.0, { 3, 466.0 }), "440.00Hz (G#3 +1cents)");
}

TEST (ReadoutText, HasNoteAndCentsOnlyWhereThereAreAny)
{
    EXPECT_EQ (formatReadout (440.0, {}), "440.00Hz (A3)");
    EXPECT_EQ (formatReadout (440.0, { 4 }), "440.00Hz (A4)");
    EXPECT_EQ (formatReadout (445.0, {}), "445.00Hz (A3 +20cents)");
    EXPECT_EQ (formatReadout (442.0, {}), "442.00Hz (A3  +8cents)");
    EXPECT_EQ (formatReadout (430.0, {}), "430.00Hz (A3 -40cents)");
}

TEST (ReadoutText, ALongNameReplacesThePaddingBlanks)
{
    EXPECT_EQ (formatReadout (notes::frequencyForNote (61, 440.0) * std::exp2 (20.0 / 1200.0), {}),
               "280.40Hz (C#3+20cents)");
    EXPECT_EQ (formatReadout (25.0, {}), "25.00Hz (G-1+35cents)");
}

TEST (ReadoutText, HasNoNoteAtTheEndsOfTheRange)
{
    EXPECT_EQ (formatReadout (20.0, {}), "20.00Hz ");
    EXPECT_EQ (formatReadout (10000.0, {}), "10000.00Hz ");
    EXPECT_EQ (formatReadout (0.0, {}), "0.00Hz ");
    EXPECT_EQ (formatReadout (22050.0, {}), "22050.00Hz ");
    EXPECT_TRUE (formatReadout (20.01, {}).contains ("("));
    EXPECT_TRUE (formatReadout (9999.99, {}).contains ("("));
}

TEST (ReadoutText, NamesTheNearerNoteAroundTheMiddleOfTwo)
{
    const auto at = [] (double semitonesFromA)
    { return formatReadout (440.0 * std::exp2 (semitonesFromA / 12.0), {}); };

    EXPECT_TRUE (at (0.4999).endsWith ("(A3 +50cents)"));
    EXPECT_TRUE (at (0.5001).endsWith ("(A#3-50cents)"));
    EXPECT_TRUE (at (-0.4999).endsWith ("(A3 -50cents)"));
    EXPECT_TRUE (at (-0.5001).endsWith ("(G#3+50cents)"));
    EXPECT_TRUE (at (0.004).endsWith ("(A3)")) << "less than half a cent";
    EXPECT_TRUE (at (0.006).endsWith ("(A3  +1cents)"));
}

TEST (ReadoutText, IsTranslated)
{
    juce::LocalisedStrings::setCurrentMappings (
        new juce::LocalisedStrings ("language: [test]\ncountries: [xx]\n\"cents\" = \"Cent\"\n", false));
    EXPECT_EQ (formatReadout (445.0, {}), "445.00Hz (A3 +20Cent)");
    juce::LocalisedStrings::setCurrentMappings (nullptr);
}

//==============================================================================
TEST (ReadoutPlacement, TheTagIsAtLeastFifteenHighAndFortyWithoutAnEditor)
{
    EXPECT_EQ (getReadoutHeight (1000), 40);
    EXPECT_EQ (getReadoutHeight (2112), 84);
    EXPECT_EQ (getReadoutHeight (100), 15);
    EXPECT_EQ (getReadoutHeight (399), 15);
    EXPECT_EQ (getReadoutHeight (400), 16);
    EXPECT_EQ (getReadoutHeight (0), 40);
}

TEST (ReadoutPlacement, TheTextHasAMarginOfAQuarterOfTheHeight)
{
    EXPECT_EQ (getReadoutTextArea ({ 0, 0, 220, 40 }), (juce::Rectangle { 10, 0, 200, 40 }));
    EXPECT_EQ (getReadoutTextArea ({ 0, 0, 107, 15 }), (juce::Rectangle { 3, 0, 101, 15 }));
}

const juce::Rectangle<int> container { 0, 0, 1000, 600 };

TEST (ReadoutPlacement, IsToTheRightOfAndBelowTheCursor)
{
    const auto placed = placeReadoutAtCursor ({ 100, 50 }, 200, 40, container);
    EXPECT_EQ (placed.bounds, (juce::Rectangle { 120, 70, 220, 40 }));
    EXPECT_EQ (placed.justification, juce::Justification::centredLeft);
}

TEST (ReadoutPlacement, TheTagIsAtLeastAsWideAsHigh)
{
    EXPECT_EQ (placeReadoutAtCursor ({ 100, 50 }, 10, 40, container).bounds.getWidth(), 60);
}

TEST (ReadoutPlacement, MovesToTheLeftOfTheCursorAtTheRightEdge)
{
    // The tag is 220 wide and keeps 20 from the edge, so it fits to the right of a cursor up to x = 739.
    EXPECT_EQ (placeReadoutAtCursor ({ 739, 50 }, 200, 40, container).bounds.getX(), 759);

    const auto swung = placeReadoutAtCursor ({ 740, 50 }, 200, 40, container);
    EXPECT_EQ (swung.bounds, (juce::Rectangle { 500, 70, 220, 40 }));
    EXPECT_EQ (swung.justification, juce::Justification::centredRight);
}

TEST (ReadoutPlacement, IsCentredIfItFitsOnNeitherSide)
{
    const juce::Rectangle<int> narrow { 0, 0, 300, 600 };
    const auto placed = placeReadoutAtCursor ({ 150, 50 }, 200, 40, narrow);
    EXPECT_EQ (placed.bounds, (juce::Rectangle { 0, 70, 220, 40 }));
    EXPECT_EQ (placed.justification, juce::Justification::centred);
}

TEST (ReadoutPlacement, MovesAboveTheCursorAtTheBottom)
{
    EXPECT_EQ (placeReadoutAtCursor ({ 100, 499 }, 200, 40, container).bounds.getY(), 519);
    EXPECT_EQ (placeReadoutAtCursor ({ 100, 500 }, 200, 40, container).bounds.getY(), 440);
}

TEST (ReadoutPlacement, NeverLeavesTheContainer)
{
    for (const auto& size : { juce::Rectangle { 100, 100 }, { 182, 100 }, { 40, 300 }, { 700, 90 }, { 10, 10 } })
        for (const auto height : { 15, 40, 84 })
            for (const auto textWidth : { 20, 80, 160, 400 })
                for (int x = -50; x <= size.getWidth() + 50; x += 3)
                    for (int y = -50; y <= size.getHeight() + 50; y += 3)
                        ASSERT_TRUE (size.contains (placeReadoutAtCursor ({ x, y }, textWidth, height, size).bounds))
                            << x << ", " << y << " in " << size.toString() << " text " << textWidth;
}

TEST (ReadoutPlacement, NeverCoversTheCursorInALargeContainer)
{
    for (int x = 0; x <= container.getWidth(); ++x)
        for (int y = 0; y <= container.getHeight(); y += 5)
            ASSERT_FALSE (placeReadoutAtCursor ({ x, y }, 200, 40, container).bounds.contains (x, y)) << x << ", " << y;
}

TEST (ReadoutPlacement, RestsAtTheLowerLeftOfTheView)
{
    const auto placed = placeReadoutAtRest ({ 0, 0, 900, 600 }, 200, 40, container);
    EXPECT_EQ (placed.bounds, (juce::Rectangle { 1, 559, 220, 40 }));
    EXPECT_EQ (placed.justification, juce::Justification::centredLeft);

    // If the view is narrower than the text, the tag extends over the strips but stays in the container.
    EXPECT_EQ (placeReadoutAtRest ({ 0, 0, 40, 100 }, 140, 15, { 100, 100 }).bounds,
               (juce::Rectangle { 0, 84, 100, 15 }));
}

} // namespace
} // namespace mk::orlo::test
