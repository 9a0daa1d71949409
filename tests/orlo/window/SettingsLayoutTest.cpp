// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/SettingsLayout.h"

#include "SettingsDesign.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
TEST (SettingsLayoutTest, PutsEveryItemAtItsPlaceInTheDesign)
{
    static_assert (sizeof (SettingsLayout) == settingsItems.size() * sizeof (juce::Rectangle<int>),
                   "every item has a row");

    for (size_t i = 0; i < settingsSizes.size(); ++i)
    {
        const auto layout = SettingsLayout::forSize (settingsSizes[i].x, settingsSizes[i].y);

        for (const auto& item : settingsItems)
            EXPECT_EQ (layout.*item.place, item.bounds[i])
                << item.id << " at " << settingsSizes[i].toString() << ": " << (layout.*item.place).toString();
    }
}

TEST (SettingsLayoutTest, AlignsTheTogglesOfTheScaleWithTheEndOfTheModeBar)
{
    for (int width = 20; width < 1000; width += 7)
    {
        const auto layout = SettingsLayout::forSize (width, 500);
        const auto toggleWidth = layout.rulerToggle.getWidth();
        EXPECT_EQ (layout.rulerToggle.getRight(), layout.modeBar.getRight());
        EXPECT_EQ (layout.keyboardToggle.getX(),
                   layout.modeBar.getRight() - (juce::roundToInt (1.1f * float (toggleWidth)) + toggleWidth));
        EXPECT_EQ (layout.keyboardToggle.getY(), layout.scaleBox.getY());
        EXPECT_EQ (layout.keyboardToggle.getHeight(), layout.scaleBox.getHeight());
    }
}

TEST (SettingsLayoutTest, StaysInsideATinyPanel)
{
    for (const auto side : { 0, 1, 2, 3, 5, 10, 23, 100 })
    {
        const auto layout = SettingsLayout::forSize (side, side);
        const juce::Rectangle<int> panel (side, side);

        // Position and size are rounded separately, so an item may end one pixel further.
        for (const auto& item : settingsItems)
            EXPECT_TRUE (panel.expanded (1).contains (layout.*item.place)) << item.id << " at " << side;
    }
}
} // namespace
} // namespace mk::orlo::test
