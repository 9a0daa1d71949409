// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/MainLayout.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using Bounds = juce::Rectangle<int>;

[[nodiscard]] MainLayoutInput makeWindow (int width, int height)
{
    return { width, height, false, false, false, false, false };
}

TEST (MainLayout, AtTheDesignSizeTheSideBarTakesATwentiethOfTheWidth)
{
    const auto layout = layOutMain (makeWindow (1818, 1000));
    EXPECT_EQ (layout.sideBar, (Bounds { 0, 0, 90, 1000 }));
    EXPECT_EQ (layout.spectrogram, (Bounds { 90, 0, 1728, 1000 }));

    // A button is two thirds of the side bar wide, and a seventh of its own width from the edges.
    EXPECT_EQ (layout.viewButton, (Bounds { 1750, 8, 60, 60 }));
    EXPECT_EQ (layout.freezeButton, (Bounds { 15, 8, 60, 60 }));
    EXPECT_EQ (layout.exportButton, (Bounds { 15, 8, 60, 60 }));
}

TEST (MainLayout, ThePanelTakes23PercentBesideTheSideBar)
{
    auto window = makeWindow (1818, 1000);
    window.isSettingsPanelVisible = true;
    const auto layout = layOutMain (window);
    EXPECT_EQ (layout.settingsPanel, (Bounds { 90, 0, 418, 1000 }));
    EXPECT_EQ (layout.spectrogram, (Bounds { 508, 0, 1310, 1000 }));
}

TEST (MainLayout, InFullViewTheSpectrogramFillsTheWindow)
{
    auto window = makeWindow (1818, 1000);
    window.isFullView = true;
    EXPECT_EQ (layOutMain (window).spectrogram, (Bounds { 0, 0, 1818, 1000 }));
}

TEST (MainLayout, TheViewButtonStaysClearOfTheRulerAndTheKeyboard)
{
    auto window = makeWindow (1818, 1000);
    const auto x = layOutMain (window).viewButton.getX();
    window.isRulerOn = true;
    EXPECT_EQ (layOutMain (window).viewButton.getX(), x - 60);
    window.isKeyboardOn = true;
    EXPECT_EQ (layOutMain (window).viewButton.getX(), x - 120) << "two buttons further left";
    window.isRulerOn = false;
    EXPECT_EQ (layOutMain (window).viewButton.getX(), x - 60);
}

TEST (MainLayout, TheExportButtonMakesRoomForTheFreezeButton)
{
    auto window = makeWindow (1818, 1000);
    window.isFreezeButtonVisible = true;
    EXPECT_EQ (layOutMain (window).exportButton, (Bounds { 15, 83, 60, 60 }));
}

TEST (MainLayout, ButtonsAndSideBarHaveAMinimumSizeInASmallWindow)
{
    const auto layout = layOutMain (makeWindow (100, 100));
    EXPECT_EQ (layout.sideBar.getWidth(), 15);
    EXPECT_EQ (layout.viewButton, (Bounds { 66, 4, 30, 30 }));
    EXPECT_EQ (layout.freezeButton.getX(), 2);
}

TEST (MainLayout, EverythingStaysInsideTheWindowAtAnySize)
{
    for (int width = 0; width <= 3840; width += width < 200 ? 1 : 91)
    {
        for (const auto height : { 0, 1, 20, 100, 1000, 2112 })
        {
            for (int flags = 0; flags < 32; ++flags)
            {
                const auto has = [flags] (int bit) { return (flags & (1 << bit)) != 0; };
                const auto layout =
                    layOutMain ({ width, height, has (0), has (1), has (2), has (3) && ! has (0), has (4) });
                const Bounds window { width, height };

                ASSERT_TRUE (window.contains (layout.sideBar));
                ASSERT_TRUE (window.contains (layout.spectrogram));
                ASSERT_TRUE (window.contains (layout.settingsPanel));
                ASSERT_GE (layout.viewButton.getWidth(), 0);
                ASSERT_GE (layout.viewButton.getHeight(), 0);

                if (! has (0))
                {
                    ASSERT_EQ (layout.spectrogram.getX(),
                               layout.sideBar.getWidth() + (has (3) ? layout.settingsPanel.getWidth() : 0));
                }
            }
        }
    }
}

} // namespace
} // namespace mk::orlo::test
