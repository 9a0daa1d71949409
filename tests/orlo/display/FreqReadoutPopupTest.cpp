// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/FreqReadoutPopup.h"

#include "orlo/style/OrloColours.h"
#include "tests/support/Mouse.h"
#include "tests/support/Painting.h"
#include "tests/support/TestEditor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

const juce::Colour ground { 0xff202020 };
const juce::Colour ink { 0xffffffff };

/** A readout over a picture and a strip of 50 pixels beside it, in an editor of the given size. */
struct ReadoutInEditor
{
    ReadoutInEditor (int width, int height) : editor (width, height)
    {
        editor.addAndMakeVisible (container);
        container.setBounds (editor.getLocalBounds());
        container.addAndMakeVisible (picture);
        picture.setBounds (container.getLocalBounds().withTrimmedRight (50));
        container.addChildComponent (readout);
        readout.setColour (colourId::readoutBackground, ground);
        readout.setColour (colourId::readoutText, ink);
    }

    void showAt (juce::Point<float> cursor, const juce::String& text, bool followCursor = true)
    {
        readout.show (makeMouseEvent (picture, cursor), text, followCursor, picture.getBounds());
    }

    TestEditor editor;
    juce::Component container, picture;
    FreqReadoutPopup readout;
};

TEST (FreqReadoutPopup, StartsEmptyTakesNoClicksAndPaintsNothing)
{
    FreqReadoutPopup readout;
    readout.setSize (50, 20);
    EXPECT_EQ (readout.getText(), "");
    EXPECT_EQ (readout.getJustification(), juce::Justification::centredLeft);
    EXPECT_FALSE (readout.hitTest (10, 10));

    const auto image = paintComponent (readout);
    EXPECT_TRUE (findBandsOfRows (image, juce::Colours::transparentBlack, { 0, 50 }).empty());
}

TEST (FreqReadoutPopup, AppearsInFrontWithTheTextAsItsName)
{
    ReadoutInEditor test { 1818, 1000 };
    test.showAt ({ 100.0f, 200.0f }, "440.00Hz (A3)");
    EXPECT_TRUE (test.readout.isVisible());
    EXPECT_EQ (test.container.getChildComponent (test.container.getNumChildComponents() - 1), &test.readout);
    EXPECT_EQ (test.readout.getText(), "440.00Hz (A3)");
    EXPECT_EQ (test.readout.getTitle(), "440.00Hz (A3)");
    EXPECT_EQ (test.readout.getPosition(), juce::Point (120, 220));
    EXPECT_EQ (test.readout.getHeight(), 40);
    EXPECT_FLOAT_EQ (test.readout.getFont().getHeight(), 25.0f);
}

TEST (FreqReadoutPopup, ConvertsEventsOfAnyChild)
{
    ReadoutInEditor test { 1818, 1000 };
    test.picture.setTopLeftPosition (30, 40);
    test.showAt ({ 100.0f, 200.0f }, "440.00Hz (A3)");
    EXPECT_EQ (test.readout.getPosition(), juce::Point (150, 260));
}

TEST (FreqReadoutPopup, RestsAtTheLowerLeftWhenNothingIsHeld)
{
    ReadoutInEditor test { 1818, 1000 };
    test.showAt ({ 900.0f, 300.0f }, "440.00Hz (A3)", false);
    EXPECT_EQ (test.readout.getPosition(), juce::Point (1, 959));
}

TEST (FreqReadoutPopup, FollowsTheSizeOfTheEditor)
{
    ReadoutInEditor test { 1818, 1000 };
    test.showAt ({ 100.0f, 200.0f }, "440.00Hz (A3)");

    // The tag keeps its height, since only the width of the editor changes.
    test.editor.setSize (909, 1000);
    test.container.setSize (909, 1000);
    test.showAt ({ 100.0f, 200.0f }, "440.00Hz (A3)");
    EXPECT_FLOAT_EQ (test.readout.getFont().getHeight(), 15.0f);
    EXPECT_EQ (test.readout.getHeight(), 40);
}

TEST (FreqReadoutPopup, PaintsARoundedTagAndItsText)
{
    ReadoutInEditor test { 1818, 1000 };
    test.showAt ({ 100.0f, 200.0f }, "440.00Hz (A3)");
    const auto image = paintComponent (test.readout);
    const auto width = image.getWidth();

    EXPECT_EQ (image.getPixelAt (0, 0).getAlpha(), 0) << "round corners";
    EXPECT_EQ (image.getPixelAt (width / 2, 2), ground);
    EXPECT_EQ (image.getPixelAt (5, 20), ground);

    const auto bands = findBandsOfRows (image, ground, { 10, width - 10 });
    ASSERT_EQ (bands.size(), 3u) << "the top edge, the text, the bottom edge";
    EXPECT_NEAR (double (bands[1].getStart() + bands[1].getEnd()) * 0.5, 20.0, 3.0);
}

TEST (FreqReadoutPopup, NeverCutsItsTextOrLeavesTheContainer)
{
    const juce::String longest = "9876.54Hz (D#8 -49cents)";

    for (const auto& [width, height] : { std::pair { 100, 100 },
                                         { 182, 100 },
                                         { 640, 352 },
                                         { 1818, 1000 },
                                         { 3840, 2112 },
                                         { 3840, 100 },
                                         { 100, 2000 } })
        for (const auto cursor : { juce::Point { 0.0f, 0.0f }, { 0.5f, 1.0f }, { 1.0f, 0.0f }, { 1.0f, 1.0f } })
        {
            SCOPED_TRACE (juce::String (width) + " x " + juce::String (height) + " " + cursor.toString());
            ReadoutInEditor test { width, height };
            test.showAt ({ cursor.x * float (width), cursor.y * float (height) }, longest);
            EXPECT_TRUE (test.container.getLocalBounds().contains (test.readout.getBounds()));

            // If the sides cut the text, it would reach into the margin.
            constexpr int margin = 30;
            test.readout.setColour (colourId::readoutBackground, juce::Colours::transparentBlack);
            const auto image = paintUnclipped (test.readout, margin);
            const auto none = juce::Colours::transparentBlack;
            EXPECT_TRUE (findBandsOfRows (image, none, { 0, margin }).empty());
            EXPECT_TRUE (findBandsOfRows (image, none, { image.getWidth() - margin, image.getWidth() }).empty());
            const auto bands = findBandsOfRows (image, none, { 0, image.getWidth() });
            ASSERT_EQ (bands.size(), 1u);
            EXPECT_GE (bands[0].getStart(), margin);
            EXPECT_LE (bands[0].getEnd(), image.getHeight() - margin);

            // Even if the text is squeezed, its last bracket is drawn: there is ink at the far end and no ellipsis.
            const auto textEnd = margin + getReadoutTextArea (test.readout.getLocalBounds()).getRight();
            EXPECT_FALSE (findBandsOfRows (image, none, { textEnd - 12, textEnd }).empty());
        }
}

} // namespace
} // namespace mk::orlo::test
