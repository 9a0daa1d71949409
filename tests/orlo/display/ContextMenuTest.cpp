// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ContextMenu.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

/** Lists the rows of the menu: id, text, and "(off)" if the row is disabled. */
[[nodiscard]] juce::String toText (const contextMenu::State& state)
{
    juce::PopupMenu menu;
    contextMenu::fill (menu, state);
    juce::StringArray rows;

    for (juce::PopupMenu::MenuItemIterator i (menu); i.next();)
    {
        const auto& item = i.getItem();
        rows.add (item.isSeparator ? juce::String ("-")
                                   : juce::String (item.itemID) + " " + item.text + (item.isEnabled ? "" : " (off)"));
    }

    return rows.joinIntoString ("; ");
}

TEST (ContextMenu, DisablesTheExportWhileThePictureRuns)
{
    EXPECT_EQ (toText ({ false, false, false, false }),
               "1 Freeze; 2 Export as PNG (off); -; 5 Switch to Full View; 4 Show Piano; 3 Show Ruler; -; 6 Manual");
}

TEST (ContextMenu, NamesTheStateThatEachEntrySwitchesTo)
{
    EXPECT_EQ (toText ({ true, true, true, true }),
               "1 Unfreeze; 2 Export as PNG; -; 5 Switch to Standard View; 4 Hide Piano; 3 Hide Ruler; -; 6 Manual");
}

TEST (ContextMenu, IsRebuiltEachTime)
{
    juce::PopupMenu menu;
    contextMenu::fill (menu, { false, false, false, false });
    contextMenu::fill (menu, { false, false, false, false });
    EXPECT_EQ (menu.getNumItems(), 6);
}

} // namespace
} // namespace mk::orlo::test
