// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/PluginLookAndFeel.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::distance;
using test::snapshotOf;
namespace styleProperty = pluginCore::styleProperty;

class ComboBoxDrawingTest : public testing::Test
{
protected:
    ComboBoxDrawingTest()
    {
        box.addItem ("2048", 1);
        box.setSelectedId (1, juce::dontSendNotification);
        window.add (box, { 0, 0, 169, 56 });
    }

    [[nodiscard]] juce::Label& label() { return *dynamic_cast<juce::Label*> (box.getChildComponent (0)); }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::ComboBox box;
};

TEST_F (ComboBoxDrawingTest, TheBoxIsTheRaisedBackgroundWithAnOutlineTwoPixelsWide)
{
    const auto image = snapshotOf (box);
    const auto outline = window.style.findColour (juce::ComboBox::outlineColourId);
    EXPECT_EQ (image.getPixelAt (80, 5).getARGB(), 0xFF2F2F2Fu);
    EXPECT_LE (distance (image.getPixelAt (80, 0), outline), 1);
    EXPECT_LE (distance (image.getPixelAt (80, 1), outline), 1);
    EXPECT_EQ (image.getPixelAt (80, 2).getARGB(), 0xFF2F2F2Fu);
    EXPECT_EQ (image.getPixelAt (1, 1).getAlpha(), 0) << "round corners";
}

TEST_F (ComboBoxDrawingTest, ADisabledBoxIsHalfTransparent)
{
    box.setEnabled (false);
    EXPECT_NEAR (int (snapshotOf (box).getPixelAt (80, 5).getAlpha()), 128, 1);
}

TEST_F (ComboBoxDrawingTest, TextFollowsTheWindowAndFitsBesideTheArrow)
{
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 33.0f);
    EXPECT_LT (label().getRight(), 130);

    window.window.setSize (909, 500);
    box.setSize (84, 28);
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 16.5f);

    box.getProperties().set (styleProperty::fontScale, 0.8);
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 13.2f);

    box.setSize (84, 10);
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 8.0f);
}

TEST_F (ComboBoxDrawingTest, TheHeightOfItsMenusEntriesFollowsTheBox)
{
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getStandardItemHeight(), 48);
    box.setSize (169, 41);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getStandardItemHeight(), 35);
}

TEST_F (ComboBoxDrawingTest, ItsMenuHasAtLeastTheColumnsAskedFor)
{
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMinimumNumColumns(), 1);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMaximumNumColumns(), 1);
    box.getProperties().set (styleProperty::numCol, 2);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMinimumNumColumns(), 2);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMaximumNumColumns(), 2);
}
} // namespace
} // namespace mk::orlo
