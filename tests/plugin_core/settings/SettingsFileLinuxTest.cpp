// SPDX-License-Identifier: AGPL-3.0-or-later
// Where the settings are on Linux, and what happens to a file in the place where earlier versions put it.
#include <juce_core/juce_core.h>

#if JUCE_LINUX

    #include "plugin_core/presets/PresetBases.h"
    #include "plugin_core/settings/PluginGlobalSettings.h"

    #include "tests/support/FailingDisk.h"
    #include "tests/support/TemporaryHome.h"

    #include <gtest/gtest.h>

    #include <cstdlib>

namespace mk::pluginCore
{
namespace
{

class SettingsFileLinux : public testing::Test
{
protected:
    ~SettingsFileLinux() override { unsetenv ("XDG_CONFIG_HOME"); }

    /** A file of an earlier version. */
    void writeFormerFile (const juce::String& width) const
    {
        const PluginGlobalSettings::InnerData data (formerFile);
        data.getSettings().setProperty (SettingsIds::defaultWidth, width, nullptr);
    }

    /** A run of the plug-in that finds the settings as given and changes one. */
    static void expectRun (const juce::String& expectedWidth, const juce::String& newWidth)
    {
        const PluginGlobalSettings handle;
        EXPECT_EQ (handle.getSettings()[SettingsIds::defaultWidth].toString(), expectedWidth);
        handle.getSettings().setProperty (SettingsIds::defaultWidth, newWidth, nullptr);
    }

    const orlo::test::TemporaryHome home;
    const juce::File file { home.getFolder().getChildFile (".config/Morlek/Orlo/Orlo.settings") };
    const juce::File formerFile { home.getFolder().getChildFile ("Morlek/Orlo/Orlo.settings") };
};

TEST_F (SettingsFileLinux, LiesInTheUsersConfigurationBesideThePresets)
{
    expectRun ({}, "1000");
    EXPECT_TRUE (file.existsAsFile());
    EXPECT_TRUE (file.isAChildOf (getUserPresetBase()));
    EXPECT_FALSE (home.getFolder().getChildFile ("Morlek").exists());
    expectRun ("1000", "1100");
}

TEST_F (SettingsFileLinux, LiesWhereTheUserWantsTheConfiguration)
{
    const orlo::test::TemporaryFolder elsewhere;
    setenv ("XDG_CONFIG_HOME", elsewhere.get().getFullPathName().toRawUTF8(), 1);
    expectRun ({}, "1000");
    EXPECT_TRUE (elsewhere.get().getChildFile ("Morlek/Orlo/Orlo.settings").existsAsFile());
    EXPECT_EQ (getUserPresetBase(), elsewhere.get());

    // A relative path is ignored.
    setenv ("XDG_CONFIG_HOME", "configuration", 1);
    expectRun ({}, "1000");
    EXPECT_TRUE (file.existsAsFile());
}

TEST_F (SettingsFileLinux, OfAnEarlierVersionIsMovedOnce)
{
    writeFormerFile ("1000");
    expectRun ("1000", "1100");
    EXPECT_TRUE (file.existsAsFile());
    EXPECT_FALSE (home.getFolder().getChildFile ("Morlek").exists()) << "empty folders are left behind";

    writeFormerFile ("2000");
    expectRun ("1100", "1200");
    EXPECT_TRUE (formerFile.existsAsFile());
}

TEST_F (SettingsFileLinux, OfAnEarlierVersionLeavesOtherFilesInItsFolders)
{
    writeFormerFile ("1000");
    const auto other = home.getFolder().getChildFile ("Morlek/mine.txt");
    ASSERT_TRUE (other.replaceWithText ("mine"));
    expectRun ("1000", "1100");
    EXPECT_FALSE (formerFile.getParentDirectory().exists());
    EXPECT_EQ (other.loadFileAsString(), "mine");
}

TEST_F (SettingsFileLinux, OfAnEarlierVersionIsCopiedThroughALink)
{
    const orlo::test::TemporaryFolder elsewhere;
    writeFormerFile ("1000");
    const auto target = home.getFolder().getChildFile ("Morlek/kept.settings");
    ASSERT_TRUE (formerFile.moveFileTo (target));
    ASSERT_TRUE (juce::File::createSymbolicLink (formerFile, "../kept.settings", false));
    expectRun ("1000", "1100");
    EXPECT_FALSE (file.isSymbolicLink());
    EXPECT_FALSE (formerFile.isSymbolicLink());
    EXPECT_TRUE (target.existsAsFile());
}

TEST_F (SettingsFileLinux, OfAnEarlierVersionIsUsedWhereItIsIfItCannotBeMoved)
{
    writeFormerFile ("1000");
    ASSERT_TRUE (home.getFolder().getChildFile (".config").replaceWithText ("in the way"));
    expectRun ("1000", "1100");
    expectRun ("1100", "1200");
    EXPECT_TRUE (formerFile.existsAsFile());

    ASSERT_TRUE (home.getFolder().getChildFile (".config").deleteFile());
    expectRun ("1200", "1300");
    EXPECT_TRUE (file.existsAsFile());
    EXPECT_FALSE (formerFile.exists());
}

TEST_F (SettingsFileLinux, OfAnEarlierVersionIsReadFromAHomeThatIsReadOnly)
{
    writeFormerFile ("1000");
    const orlo::test::ReadOnlyFolder readOnly (home.getFolder());
    expectRun ("1000", "1100");
    EXPECT_TRUE (formerFile.existsAsFile());
    EXPECT_FALSE (file.exists());
}

} // namespace
} // namespace mk::pluginCore

#endif
