// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ContextMenu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] juce::String toText (const juce::PopupMenu& menu)
{
    juce::StringArray rows;

    for (juce::PopupMenu::MenuItemIterator i (menu); i.next();)
    {
        const auto& item = i.getItem();
        const auto text = item.text + (item.isEnabled ? "" : " (off)") + (item.isTicked ? " (ticked)" : "");

        if (item.isSeparator)
            rows.add ("-");
        else if (item.subMenu != nullptr)
            rows.add (text + ": [" + toText (*item.subMenu) + "]");
        else
            rows.add (juce::String (item.itemID) + " " + text);
    }

    return rows.joinIntoString ("; ");
}

/** Lists the rows of the menu: id, text, "(off)" if the row is disabled, and the rows of its submenu. */
[[nodiscard]] juce::String toText (const contextMenu::State& state)
{
    juce::PopupMenu menu;
    contextMenu::fill (menu, state);
    return toText (menu);
}

/** The rows of the menu from the one with the text on. */
[[nodiscard]] juce::String textFrom (const juce::String& start, const contextMenu::State& state)
{
    return toText (state).fromFirstOccurrenceOf (start, true, false);
}

TEST (ContextMenu, DisablesTheExportWhileThePictureRuns)
{
    EXPECT_THAT (toText ({ false, false, false, false }).toStdString(),
                 testing::StartsWith ("1 Freeze; 2 Export as PNG (off); -; 5 Switch to Full View; 4 Show Piano; "
                                      "3 Show Ruler; -; 6 Manual; -; "));
}

TEST (ContextMenu, NamesTheStateThatEachEntrySwitchesTo)
{
    EXPECT_THAT (toText ({ true, true, true, true }).toStdString(),
                 testing::StartsWith ("1 Unfreeze; 2 Export as PNG; -; 5 Switch to Standard View; 4 Hide Piano; "
                                      "3 Hide Ruler; -; 6 Manual; -; "));
}

TEST (ContextMenu, IsRebuiltEachTime)
{
    juce::PopupMenu menu;
    contextMenu::fill (menu, { false, false, false, false });
    contextMenu::fill (menu, { false, false, false, false });
    EXPECT_EQ (menu.getNumItems(), 7);
}

TEST (ContextMenu, TicksTheChosenPointsAndOffersThemInEnhancedOnly)
{
    EXPECT_EQ (textFrom ("Points", { false, false, false, false }),
               "Points: [1000 All (ticked); 1001 Lines; 1002 Clicks; 1003 Lines and Clicks]");
    EXPECT_EQ (textFrom ("Points", { false, false, false, false, false, PointsKept::linesAndClicks }),
               "Points (off): [1000 All; 1001 Lines; 1002 Clicks; 1003 Lines and Clicks (ticked)]");
}

TEST (ContextMenu, FindsThePointsOfItsItems)
{
    EXPECT_EQ (contextMenu::findPoints (999), std::nullopt);
    EXPECT_EQ (contextMenu::findPoints (1000), PointsKept::all);
    EXPECT_EQ (contextMenu::findPoints (1003), PointsKept::linesAndClicks);
    EXPECT_EQ (contextMenu::findPoints (1004), std::nullopt);
}

} // namespace
} // namespace mk::orlo::test
