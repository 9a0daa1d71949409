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

        if (item.isSectionHeader)
            continue;

        if (item.isSeparator)
            rows.add ("-");
        else if (item.subMenu != nullptr)
            rows.add (text + ": [" + toText (*item.subMenu) + "]");
        else
            rows.add (juce::String (item.itemID) + " " + text);
    }

    return rows.joinIntoString ("; ");
}

/** Lists the rows of the menu without headings: id, text, "(off)" if the row is disabled, the rows of its submenu. */
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
    EXPECT_EQ (menu.getNumItems(), 14);
}

TEST (ContextMenu, TicksTheChosenPointsAndOffersThemInEnhancedOnly)
{
    EXPECT_THAT (textFrom ("Points", { false, false, false, false }).toStdString(),
                 testing::StartsWith ("Points: [1000 All (ticked); 1001 Lines; 1002 Clicks; 1003 Lines and Clicks]; "));
    EXPECT_THAT (
        textFrom ("Points", { false, false, false, false, false, PointsKept::linesAndClicks }).toStdString(),
        testing::StartsWith ("Points (off): [1000 All; 1001 Lines; 1002 Clicks; 1003 Lines and Clicks (ticked)]; "));
}

TEST (ContextMenu, TicksTheConcertPitchAndShowsOneThatIsNotOffered)
{
    contextMenu::State state { false, false, false, false };
    EXPECT_THAT (textFrom ("A4", state).toStdString(),
                 testing::StartsWith (
                     "A4: [1200 415 Hz; 1201 430 Hz; 1202 432 Hz; 1203 435 Hz; 1204 440 Hz (ticked); 1205 441 Hz; 1206 "
                     "442 Hz; 1207 443 Hz; 1208 444 Hz; 1209 466 Hz; -; 1299 Other...]; "));
    state.concertPitch = 442.5;
    EXPECT_THAT (textFrom ("1204", state).toStdString(), testing::StartsWith ("1204 440 Hz; 1205"));
    EXPECT_THAT (textFrom ("1299", state).toStdString(), testing::StartsWith ("1299 Other... (442.5) (ticked)]"));
}

TEST (ContextMenu, TicksTheNameOfMiddleC)
{
    contextMenu::State state { false, false, false, false };
    state.hostsMiddleC = 4;
    EXPECT_THAT (textFrom ("Middle C", state).toStdString(),
                 testing::StartsWith ("Middle C: [1300 As in the host (C4) (ticked); 1303 C3; 1304 C4; 1305 C5]; "));
    state.middleC = 5;
    EXPECT_THAT (textFrom ("1300", state).toStdString(),
                 testing::StartsWith ("1300 As in the host (C4); 1303 C3; 1304 C4; 1305 C5 (ticked)]; "));
}

TEST (ContextMenu, FindsPitchesAndOctavesOfItsItems)
{
    EXPECT_EQ (contextMenu::findConcertPitch (1199), std::nullopt);
    EXPECT_EQ (contextMenu::findConcertPitch (1200), 415.0);
    EXPECT_EQ (contextMenu::findConcertPitch (1209), 466.0);
    EXPECT_EQ (contextMenu::findConcertPitch (1210), std::nullopt);
    EXPECT_EQ (contextMenu::findConcertPitch (contextMenu::otherConcertPitch), std::nullopt);
    ASSERT_TRUE (contextMenu::findMiddleC (1300).has_value());
    EXPECT_EQ (*contextMenu::findMiddleC (1300), std::nullopt);
    EXPECT_EQ (contextMenu::findMiddleC (1305).value_or (std::nullopt), 5);

    for (const auto item : { 1299, 1301, 1302, 1306 })
        EXPECT_FALSE (contextMenu::findMiddleC (item).has_value()) << item;
}

TEST (ContextMenu, TicksTheSourceAndOffersItForTwoChannelsOnly)
{
    contextMenu::State state { false, false, false, false };
    EXPECT_THAT (textFrom ("Source", state).toStdString(),
                 testing::StartsWith ("Source: [1100 Mean (ticked); 1101 Left; 1102 Right; 1103 Mid; 1104 Side; 1105 "
                                      "Loudest]; A4"));
    state.isStereo = false;
    state.source = Source::loudest;
    EXPECT_THAT (textFrom ("Source", state).toStdString(), testing::StartsWith ("Source (off): [1100 Mean; "));
    EXPECT_THAT (textFrom ("1105", state).toStdString(), testing::StartsWith ("1105 Loudest (ticked)]"));
    EXPECT_EQ (contextMenu::findSource (1099), std::nullopt);
    EXPECT_EQ (contextMenu::findSource (1104), Source::side);
    EXPECT_EQ (contextMenu::findSource (1106), std::nullopt);
}

TEST (ContextMenu, SaysInEachSubmenuWhatItDecides)
{
    juce::PopupMenu menu;
    contextMenu::fill (menu, { false, false, false, false });
    juce::StringArray headings;

    for (juce::PopupMenu::MenuItemIterator i (menu, true); i.next();)
        if (i.getItem().isSectionHeader)
            headings.add (i.getItem().text);

    EXPECT_EQ (headings.joinIntoString ("; "),
               "Which points Enhanced draws; Which channels are analysed; The pitch that notes are named by; "
               "The name of the middle C of the piano");
}

TEST (ContextMenu, FindsThePointsOfItsItems)
{
    EXPECT_EQ (contextMenu::findPoints (999), std::nullopt);
    EXPECT_EQ (contextMenu::findPoints (1000), PointsKept::all);
    EXPECT_EQ (contextMenu::findPoints (1003), PointsKept::linesAndClicks);
    EXPECT_EQ (contextMenu::findPoints (1004), std::nullopt);
}

TEST (ContextMenu, OffersTheExportsWhileASoundIsKept)
{
    contextMenu::State state { true, false, false, false };
    state.isSoundKept = true;
    EXPECT_EQ (textFrom ("1400", state),
               "1400 Export picture...; Save sound: [1401 Visible range...; 1402 All that is kept...]; "
               "1403 Copy picture; Export numbers: [1404 Levels (.npy)...; 1405 Points (.csv)...]");

    state.isSoundKept = false;
    EXPECT_EQ (textFrom ("1400", state),
               "1400 Export picture... (off); Save sound (off): [1401 Visible range...; 1402 All that is kept...]; "
               "1403 Copy picture (off); Export numbers (off): [1404 Levels (.npy)...; 1405 Points (.csv)...]");
}

TEST (ContextMenu, SaysWherePicturesCannotBeCopied)
{
    contextMenu::State state { true, false, false, false };
    state.isSoundKept = true;
    state.canCopyPictures = false;
    EXPECT_THAT (textFrom ("1403", state).toStdString(),
                 testing::StartsWith ("1403 Copy picture (not possible on this system) (off); "));
}

} // namespace
} // namespace mk::orlo::test
