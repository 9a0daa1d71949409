// SPDX-License-Identifier: AGPL-3.0-or-later
// Where the dialog to save a preset opens, and what happens to the file chosen in it.
#include "plugin_core/presets/PresetsManager.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class PresetSavePlaceTest : public testing::Test
{
protected:
    PresetSavePlaceTest() { processor.applyInitialSettings(); }

    TestProcessor processor;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
};

TEST_F (PresetSavePlaceTest, TheSaveDialogOpensAtTheUsersFolderAtFirst)
{
    EXPECT_EQ (presets.getFolderToSaveIn(), presets.getUserFolder());
    presets.setCurrentPresetFile (presets.getFactoryFolder().getChildFile ("a.mkpreset"));
    EXPECT_EQ (presets.getFolderToSaveIn(), presets.getUserFolder());
}

TEST_F (PresetSavePlaceTest, TheSaveDialogOpensWhereTheCurrentPresetOfTheUserLies)
{
    const auto folder = presets.getUserFolder().getChildFile ("sub");
    ASSERT_TRUE (folder.createDirectory());
    const auto file = folder.getChildFile ("a.mkpreset");
    presets.setCurrentPresetFile (file);
    EXPECT_EQ (presets.getFolderToSaveIn(), presets.getUserFolder());

    ASSERT_TRUE (file.create().wasOk());
    EXPECT_EQ (presets.getFolderToSaveIn(), folder);
}

TEST_F (PresetSavePlaceTest, TheSaveDialogOpensWhereItSavedBefore)
{
    const auto folder = presets.getUserFolder().getChildFile ("sub");
    presets.saveChosenFile (folder.getChildFile ("a.mkpreset"), true);
    presets.setCurrentPresetFile ({});
    EXPECT_EQ (presets.getFolderToSaveIn(), folder);

    ASSERT_TRUE (folder.deleteRecursively());
    EXPECT_EQ (presets.getFolderToSaveIn(), presets.getUserFolder());
}

TEST_F (PresetSavePlaceTest, SavingOutsideTheFoldersWorksAndIsNotRemembered)
{
    const TemporaryFolder outside;
    const auto inside = presets.getUserFolder().getChildFile ("sub");
    presets.saveChosenFile (inside.getChildFile ("a.mkpreset"), true);

    const auto file = outside.get().getChildFile ("b.mkpreset");
    presets.saveChosenFile (file, true);

    EXPECT_TRUE (file.existsAsFile());
    EXPECT_EQ (presets.getCurrentPresetFile(), file);
    EXPECT_EQ (presets.getFolderToSaveIn(), inside);

    const auto xml = presets.createLastPresetXml();
    ASSERT_NE (xml, nullptr);
    EXPECT_FALSE (xml->hasAttribute ("root"));
    EXPECT_EQ (xml->getStringAttribute ("path", "?"), "");
}

TEST_F (PresetSavePlaceTest, ADialogThatIsDismissedSavesNothing)
{
    presets.saveChosenFile ({}, true);
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_EQ (presets.getUserFolder().getNumberOfChildFiles (juce::File::findFiles), 0);
}

TEST_F (PresetSavePlaceTest, ANameWithoutTheExtensionGetsIt)
{
    presets.saveChosenFile (presets.getUserFolder().getChildFile ("My v1.2"), false);
    EXPECT_EQ (presets.getCurrentPresetFile(), presets.getUserFolder().getChildFile ("My v1.2.mkpreset"));
    EXPECT_TRUE (presets.isPresetFile (presets.getCurrentPresetFile()));
}

} // namespace
} // namespace mk::orlo::test
