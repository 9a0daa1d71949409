// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/controls/ButtonBarComponent.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/Painting.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
namespace styleProperty = pluginCore::styleProperty;

TEST (ButtonBarComponentTest, ButtonsShareTheWidthAndOverlapByAPixel)
{
    for (const auto width : { 0, 1, 2, 100, 201, 334 })
    {
        for (const auto count : { 1, 2, 3, 5 })
        {
            int right = 0;

            for (int i = 0; i < count; ++i)
            {
                const auto bounds = ButtonBarComponent::getButtonBounds (i, count, width, 60);
                EXPECT_EQ (bounds.getHeight(), 60);
                EXPECT_EQ (bounds.getX(), i == 0 ? 0 : right - 1);
                EXPECT_NEAR (bounds.getWidth() - (i + 1 < count ? 1 : 0), width / count, 1);
                right = bounds.getRight();
            }

            EXPECT_EQ (right, width);
        }
    }
}

class ButtonBarParameterTest : public ::testing::Test
{
protected:
    test::TestProcessor processor;
    ButtonBarComponent bar { processor.getParameterState(), "choice" };
};

TEST_F (ButtonBarParameterTest, EachChoiceHasAButtonAndTheCurrentOneIsOn)
{
    ASSERT_EQ (bar.getNumButtons(), 4);
    EXPECT_EQ (bar.getButton (0).getButtonText(), "A");
    EXPECT_EQ (bar.getButton (3).getButtonText(), "D");
    EXPECT_EQ (int (bar.getButton (0).getProperties()[styleProperty::cat]), 2);
    EXPECT_TRUE (bar.getButton (1).getToggleState());
    EXPECT_FALSE (bar.getButton (0).getToggleState());
    EXPECT_TRUE (bar.getButton (0).isConnectedOnRight());
    EXPECT_FALSE (bar.getButton (0).isConnectedOnLeft());
    EXPECT_TRUE (bar.getButton (3).isConnectedOnLeft());
    EXPECT_FALSE (bar.getButton (3).isConnectedOnRight());
    EXPECT_EQ (bar.getTitle(), "Choice");
}

TEST_F (ButtonBarParameterTest, AClickSetsTheParameterInOneGesture)
{
    test::GestureRecorder heard { processor.getParameter ("choice") };
    bar.getButton (3).setToggleState (true, juce::sendNotificationSync);
    EXPECT_FALSE (bar.getButton (1).getToggleState());
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 3.0f);
    EXPECT_EQ (heard.take(), "[.]");
}

TEST_F (ButtonBarParameterTest, EachClickIsOneTransaction)
{
    bar.getButton (3).setToggleState (true, juce::sendNotificationSync);
    bar.getButton (0).setToggleState (true, juce::sendNotificationSync);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_TRUE (bar.getButton (3).getToggleState());
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_TRUE (bar.getButton (1).getToggleState());
}

TEST_F (ButtonBarParameterTest, ItsFrameHasCornersThatScaleWithTheWindow)
{
    test::StyledWindow<PluginLookAndFeel> window (1818, 1000);
    window.add (bar, { 0, 0, 334, 60 });
    const auto colour = window.style.findColour (colourId::buttonBarFrame);

    const auto frameAt = [&] (int editorHeight)
    {
        window.window.setSize (1818, editorHeight);
        return test::paintComponent (bar);
    };

    // The frame is a line two pixels thick around a rectangle that is inset by one and a half.
    const auto image = frameAt (1000);
    EXPECT_NEAR (int (image.getPixelAt (167, 0).getAlpha()), 128, 2);
    EXPECT_EQ (image.getPixelAt (167, 1), colour);
    EXPECT_NEAR (int (image.getPixelAt (167, 2).getAlpha()), 128, 2);
    EXPECT_EQ (image.getPixelAt (167, 3).getAlpha(), 0);
    EXPECT_EQ (image.getPixelAt (1, 30), colour);
    EXPECT_EQ (image.getPixelAt (332, 30), colour);
    EXPECT_EQ (image.getPixelAt (167, 58), colour);
    EXPECT_EQ (image.getPixelAt (167, 30).getAlpha(), 0);

    const auto firstInRow = [] (const juce::Image& picture)
    {
        int x = 0;

        while (x < 100 && picture.getPixelAt (x, 1).getAlpha() < 128)
            ++x;

        return x;
    };

    // In that row the outer edge of a corner of radius r starts at r - sqrt (2 r - 1), and the frame is inset by 0.5.
    EXPECT_NEAR (firstInRow (image), 0.5 + 6.5 - 3.5, 1.0);
    EXPECT_NEAR (firstInRow (frameAt (3000)), 0.5 + 17.5 - 5.8, 1.0);
    EXPECT_LE (firstInRow (frameAt (0)), 1);
}

TEST_F (ButtonBarParameterTest, ItsFrameFollowsItsOwnWindowWhenAnotherIsOpen)
{
    test::StyledWindow<PluginLookAndFeel> window (1818, 1000);
    window.add (bar, { 0, 0, 334, 60 });
    window.style.setEditorSize (1818, 1000);
    const auto alone = test::paintComponent (bar);

    // The other window is resized after the bar's own.
    window.style.setEditorSize (5454, 3000);
    const auto besideTheOther = test::paintComponent (bar);

    for (int x = 0; x < alone.getWidth(); ++x)
        ASSERT_EQ (besideTheOther.getPixelAt (x, 1), alone.getPixelAt (x, 1)) << x;
}

TEST_F (ButtonBarParameterTest, AnUnknownParameterGivesAnEmptyBar)
{
    ButtonBarComponent empty { processor.getParameterState(), "nothing" };
    empty.setSize (100, 20);
    EXPECT_EQ (empty.getNumButtons(), 0);
}
} // namespace
} // namespace mk::orlo
