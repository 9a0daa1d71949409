// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/presets/PresetSearch.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{

class PresetSearchTest : public testing::Test
{
protected:
    void create (const juce::String& path) const { ASSERT_TRUE (folder.getChildFile (path).create().wasOk()); }

    const orlo::test::TemporaryFolder temporary;
    const juce::File folder = temporary.get();
};

TEST_F (PresetSearchTest, AnEmptyFolderHasNone)
{
    EXPECT_FALSE (folderHasPresets (folder, "*.mkpreset"));
    EXPECT_FALSE (folderHasPresets (folder, "*"));
}

TEST_F (PresetSearchTest, AFolderThatIsMissingOrAFileHasNone)
{
    create ("file.mkpreset");
    EXPECT_FALSE (folderHasPresets (folder.getChildFile ("missing"), "*.mkpreset"));
    EXPECT_FALSE (folderHasPresets (folder.getChildFile ("file.mkpreset"), "*.mkpreset"));
    EXPECT_FALSE (folderHasPresets (folder.getChildFile ("missing"), "*"));
}

TEST_F (PresetSearchTest, APresetAtAnyDepthIsFound)
{
    create ("a/b/c/deep.mkpreset");
    EXPECT_TRUE (folderHasPresets (folder, "*.mkpreset"));
    EXPECT_TRUE (folderHasPresets (folder.getChildFile ("a"), "*.mkpreset"));
}

TEST_F (PresetSearchTest, OtherFilesAndEmptyFoldersAreNone)
{
    create ("a/note.txt");
    ASSERT_TRUE (folder.getChildFile ("b/c").createDirectory());
    EXPECT_FALSE (folderHasPresets (folder, "*.mkpreset"));
    EXPECT_TRUE (folderHasPresets (folder, "*"));
}

TEST_F (PresetSearchTest, AHiddenFileCounts)
{
    create (".hidden.mkpreset");
    EXPECT_TRUE (folderHasPresets (folder, "*.mkpreset"));
}

TEST_F (PresetSearchTest, AFolderWithTheExtensionCounts)
{
    ASSERT_TRUE (folder.getChildFile ("set.mkpreset").createDirectory());
    EXPECT_TRUE (folderHasPresets (folder, "*.mkpreset"));
}

#if ! JUCE_WINDOWS
TEST_F (PresetSearchTest, LinksAreFollowed)
{
    const orlo::test::TemporaryFolder elsewhere;
    ASSERT_TRUE (elsewhere.get().getChildFile ("a.mkpreset").create().wasOk());
    ASSERT_TRUE (elsewhere.get().createSymbolicLink (folder.getChildFile ("link"), false));
    EXPECT_TRUE (folderHasPresets (folder, "*.mkpreset"));
    EXPECT_TRUE (folderHasPresets (folder.getChildFile ("link"), "*.mkpreset"));
}

TEST_F (PresetSearchTest, ALinkToAFolderAboveEndsTheSearch)
{
    ASSERT_TRUE (folder.getChildFile ("a/b").createDirectory());
    ASSERT_TRUE (folder.createSymbolicLink (folder.getChildFile ("a/b/up"), false));
    ASSERT_TRUE (folder.getChildFile ("a").createSymbolicLink (folder.getChildFile ("a/b/side"), false));
    EXPECT_FALSE (folderHasPresets (folder, "*.mkpreset"));
}
#endif

} // namespace
} // namespace mk::pluginCore
