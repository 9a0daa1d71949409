// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/ButtonBarComponent.h"
#include "plugin_core/look/StyleProperties.h"
#include "tests/support/GestureRecorder.h"
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

TEST_F (ButtonBarParameterTest, EachChoiceHasAButtonAndThePresentOneIsOn)
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

TEST_F (ButtonBarParameterTest, AClickSetsTheParameterByOneGesture)
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

TEST_F (ButtonBarParameterTest, AnUnknownParameterGivesAnEmptyBar)
{
    ButtonBarComponent empty { processor.getParameterState(), "nothing" };
    empty.setSize (100, 20);
    EXPECT_EQ (empty.getNumButtons(), 0);
}
} // namespace
} // namespace mk::orlo
