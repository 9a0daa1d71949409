// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/ButtonBarComponent.h"
#include "plugin_core/look/StyleProperties.h"

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

TEST (ButtonBarComponentTest, OneButtonIsOnAtATime)
{
    ButtonBarComponent bar ({ "Classic", "Enhanced" });
    bar.getButton (0).setToggleState (true, juce::dontSendNotification);
    bar.getButton (1).setToggleState (true, juce::dontSendNotification);
    EXPECT_FALSE (bar.getButton (0).getToggleState());
    EXPECT_EQ (int (bar.getButton (0).getProperties()[styleProperty::cat]), 2);
    EXPECT_TRUE (bar.getButton (0).isConnectedOnRight());
    EXPECT_FALSE (bar.getButton (0).isConnectedOnLeft());
}
} // namespace
} // namespace mk::orlo
