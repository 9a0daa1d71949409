// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/presets/PresetMenu.h"

#include "tests/support/MenuRows.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#if JUCE_LINUX
    #include <unistd.h>
#endif

namespace mk::orlo::test
{
namespace
{
using pluginCore::PresetMenu;

class PresetMenuTest : public testing::Test
{
protected:
    [[nodiscard]] PresetMenu makeMenu() const { return PresetMenu::make (presets, true); }

    [[nodiscard]] juce::File writePreset (const juce::String& name) { return processor.writePreset (name, {}); }

    /** The rows of the submenu of presets, with those of its own submenus. */
    [[nodiscard]] static std::vector<MenuRow> presetRows (const PresetMenu& menu)
    {
        for (juce::PopupMenu::MenuItemIterator i (menu.menu); i.next();)
            if (i.getItem().subMenu != nullptr)
                return collectRows (*i.getItem().subMenu);

        return {};
    }

    TestProcessor processor;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
};

//==============================================================================
TEST_F (PresetMenuTest, OffersNothingToSaveToAndNoPresetsAtFirst)
{
    EXPECT_EQ (collectRows (makeMenu().menu),
               (std::vector<MenuRow> { { 1, "Save", false },
                                       { 2, "Save as..." },
                                       MenuRow::separator(),
                                       { 4, "Set Preset as Default", false },
                                       MenuRow::separator(),
                                       { 6, "Manual" },
                                       MenuRow::separator() }));
}

TEST_F (PresetMenuTest, OffersInitWhileItsFileIsThere)
{
    const auto init = presets.getInitFile();
    init.getParentDirectory().createDirectory();
    init.replaceWithText ("x");
    EXPECT_EQ (findRow (makeMenu().menu, 3), (MenuRow { 3, "Init" }));

    init.deleteFile();
    EXPECT_FALSE (findRow (makeMenu().menu, 3).has_value());
}

TEST_F (PresetMenuTest, LeavesTheDefaultOutWhereTheHostKeepsIt)
{
    EXPECT_FALSE (findRow (PresetMenu::make (presets, false).menu, 4).has_value());
    EXPECT_TRUE (findRow (PresetMenu::make (presets, true).menu, 4).has_value());
}

TEST_F (PresetMenuTest, SavesToAPresetOfTheUser)
{
    const auto file = writePreset ("mine.mkpreset");
    presets.setCurrentPresetFile (file);
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", true }));
    EXPECT_EQ (findRow (makeMenu().menu, 4), (MenuRow { 4, "Set Preset as Default", true }));
    EXPECT_EQ (makeMenu().currentPresetFile, file);

    file.deleteFile();
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", false }));
    EXPECT_EQ (findRow (makeMenu().menu, 4), (MenuRow { 4, "Set Preset as Default", false }));

    file.createDirectory();
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", false }));
}

TEST_F (PresetMenuTest, DoesNotSaveToAFactoryPreset)
{
    const auto file = presets.getFactoryFolder().getChildFile ("theirs.mkpreset");
    ASSERT_TRUE (file.replaceWithText ("x"));
    presets.setCurrentPresetFile (file);
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", false }));
    EXPECT_EQ (findRow (makeMenu().menu, 4), (MenuRow { 4, "Set Preset as Default", true }));
}

#if JUCE_LINUX
/** Makes the system answer what may be written as for an ordinary user, even if the tests run with the rights
    of root. */
struct WithoutRights
{
    WithoutRights() { EXPECT_TRUE (! isRoot || setresuid (nobody, nobody, 0) == 0); }

    ~WithoutRights() { EXPECT_TRUE (! isRoot || setresuid (0, 0, 0) == 0); }

    static constexpr uid_t nobody = 65534;
    const bool isRoot = geteuid() == 0;
};

TEST_F (PresetMenuTest, DoesNotSaveToAFileThatTheUserMayNotWrite)
{
    const auto file = writePreset ("locked.mkpreset");
    presets.setCurrentPresetFile (file);
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", true }));

    file.setReadOnly (true);
    const WithoutRights withoutRights;
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", false }));
}
#endif

TEST_F (PresetMenuTest, DoesNotMakeTheNeutralStateTheDefault)
{
    ASSERT_TRUE (presets.getInitFile().replaceWithText ("x"));
    presets.setCurrentPresetFile (presets.getInitFile());
    EXPECT_EQ (findRow (makeMenu().menu, 1), (MenuRow { 1, "Save", false }));
    EXPECT_EQ (findRow (makeMenu().menu, 4), (MenuRow { 4, "Set Preset as Default", false }));
}

//==============================================================================
TEST_F (PresetMenuTest, NumbersTwelvePresetsAndAFolderOfThreeFrom7To21)
{
    for (int i = 1; i <= 12; ++i)
        static_cast<void> (writePreset ("Bass " + juce::String (i) + ".mkpreset"));

    for (const auto* const name : { "z", "B", "a" })
        static_cast<void> (writePreset (juce::String ("bass 5 more/") + name + ".mkpreset"));

    const auto menu = makeMenu();
    const auto rows = presetRows (menu);
    ASSERT_EQ (rows.size(), 16u);

    // Names are in natural order: by the values of numbers, ignoring case, with folders among the files.
    juce::StringArray texts;
    int nextId = PresetMenu::firstPreset;

    for (const auto& row : rows)
    {
        texts.add (row.text);

        if (row.id == 0)
            continue;

        EXPECT_EQ (row.id, nextId++);
        EXPECT_EQ (menu.getPresetFile (row.id).getFileNameWithoutExtension(), row.text);
        EXPECT_TRUE (row.isEnabled);
    }

    EXPECT_EQ (texts.joinIntoString (","),
               "Bass 1,Bass 2,Bass 3,Bass 4,bass 5 more,a,B,z,Bass 5,Bass 6,Bass 7,Bass 8,Bass 9,Bass 10,Bass 11,"
               "Bass 12");
    EXPECT_EQ (nextId, 22);
    EXPECT_EQ (menu.getPresetFile (22), juce::File());
    EXPECT_EQ (menu.getPresetFile (6), juce::File());
    EXPECT_EQ (menu.getPresetFile (0), juce::File());
}

TEST_F (PresetMenuTest, ListsTwoThousandPresetsInFiftyFolders)
{
    constexpr int numFolders = 50;
    constexpr int numPresetsEach = 40;

    for (int folder = 0; folder < numFolders; ++folder)
    {
        const auto directory = presets.getUserFolder().getChildFile ("Folder " + juce::String (folder));
        ASSERT_TRUE (directory.createDirectory());

        for (int preset = 0; preset < numPresetsEach; ++preset)
            ASSERT_TRUE (directory.getChildFile ("Preset " + juce::String (preset) + ".mkpreset").create());
    }

    const auto menu = makeMenu();
    const auto rows = presetRows (menu);
    ASSERT_EQ (rows.size(), size_t (numFolders * (1 + numPresetsEach)));
    ASSERT_EQ (menu.presetFiles.size(), numFolders * numPresetsEach);
    EXPECT_EQ (rows[1].id, PresetMenu::firstPreset);
    EXPECT_EQ (rows.back().id, PresetMenu::firstPreset + numFolders * numPresetsEach - 1);
    EXPECT_EQ (menu.getPresetFile (rows.back().id).getFileName(), "Preset 39.mkpreset");
    EXPECT_EQ (menu.getPresetFile (rows.back().id).getParentDirectory().getFileName(), "Folder 49");
    EXPECT_EQ (menu.getPresetFile (rows.back().id + 1), juce::File());
}

TEST_F (PresetMenuTest, TicksTheCurrentPresetAndTheFoldersAboveIt)
{
    const auto file = writePreset ("drums/loud/kick.mkpreset");
    static_cast<void> (writePreset ("drums/snare.mkpreset"));
    static_cast<void> (writePreset ("voice/kick.mkpreset"));
    presets.setCurrentPresetFile (file);

    EXPECT_EQ (presetRows (makeMenu()),
               (std::vector<MenuRow> { { 0, "drums", true, true },
                                       { 0, "loud", true, true },
                                       { 7, "kick", true, true },
                                       { 8, "snare" },
                                       { 0, "voice" },
                                       { 9, "kick" } }));
}

TEST_F (PresetMenuTest, ShowsNoPresetsForAFolderWithoutAny)
{
    const auto folder = presets.getUserFolder();
    folder.getChildFile ("empty/deep").createDirectory();
    EXPECT_TRUE (presetRows (makeMenu()).empty());
    EXPECT_EQ (collectRows (makeMenu().menu).size(), 7u);

    folder.getChildFile ("notes.txt").replaceWithText ("x");
    EXPECT_TRUE (presetRows (makeMenu()).empty());

    static_cast<void> (writePreset ("one.mkpreset"));
    EXPECT_EQ (presetRows (makeMenu()), (std::vector<MenuRow> { { 7, "one" } }));
}

TEST_F (PresetMenuTest, ShowsNoPresetsForAFolderThatHasOnlyHiddenOnes)
{
    static_cast<void> (writePreset (".hidden.mkpreset"));
    static_cast<void> (writePreset ("only hidden/.hidden.mkpreset"));
    EXPECT_EQ (collectRows (makeMenu().menu).size(), 7u);
}

TEST_F (PresetMenuTest, LeavesOutWhatIsHiddenAndWhatIsNoPreset)
{
    const auto folder = presets.getUserFolder();
    static_cast<void> (writePreset (".hidden.mkpreset"));
    static_cast<void> (writePreset (".folder/inside.mkpreset"));
    static_cast<void> (writePreset ("only hidden/.hidden.mkpreset"));
    folder.getChildFile ("notes.txt").replaceWithText ("x");
    static_cast<void> (writePreset ("one.MKPRESET"));
    EXPECT_EQ (presetRows (makeMenu()), (std::vector<MenuRow> { { 7, "one" } }));
}

TEST_F (PresetMenuTest, ListsAUsersPresetNamedLikeTheNeutralOne)
{
    ASSERT_TRUE (presets.getInitFile().replaceWithText ("x"));
    static_cast<void> (writePreset (presets.getInitFile().getFileName()));
    EXPECT_EQ (presetRows (makeMenu()), (std::vector<MenuRow> { { 7, "Init" } }));
}

#if ! JUCE_WINDOWS
TEST_F (PresetMenuTest, EndsAtALinkThatLeadsBackUp)
{
    const auto folder = presets.getUserFolder();
    static_cast<void> (writePreset ("a/one.mkpreset"));
    static_cast<void> (writePreset ("b/two.mkpreset"));
    ASSERT_TRUE (folder.createSymbolicLink (folder.getChildFile ("a/up"), true));
    ASSERT_TRUE (folder.getChildFile ("a").createSymbolicLink (folder.getChildFile ("b/to a"), true));

    EXPECT_EQ (
        presetRows (makeMenu()),
        (std::vector<MenuRow> { { 0, "a" }, { 7, "one" }, { 0, "b" }, { 0, "to a" }, { 8, "one" }, { 9, "two" } }));
}
#endif

TEST_F (PresetMenuTest, ReadsTheDiskAtEachOpening)
{
    const auto file = writePreset ("one.mkpreset");
    const auto before = makeMenu();
    file.deleteFile();
    EXPECT_EQ (presetRows (before).size(), 1u);
    EXPECT_TRUE (presetRows (makeMenu()).empty());
}

} // namespace
} // namespace mk::orlo::test
