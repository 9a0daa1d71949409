// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/settings/PluginGlobalSettings.h"

#include "tests/support/FailingDisk.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

#if JUCE_LINUX
    #include <csignal>
    #include <sys/resource.h>
    #include <sys/stat.h>
#endif

namespace mk::pluginCore
{
namespace
{
using InnerData = PluginGlobalSettings::InnerData;

/** A run of the plug-in that finds the settings as given and changes one. */
void expectRun (const juce::File& file, const juce::String& expectedWidth, const juce::String& newWidth)
{
    InnerData data (file);
    EXPECT_EQ (data.getSettings()[SettingsIds::defaultWidth].toString(), expectedWidth);
    data.getSettings().setProperty (SettingsIds::defaultWidth, newWidth, nullptr);
    EXPECT_EQ (data.getSettings()[SettingsIds::defaultWidth].toString(), newWidth);
}

[[nodiscard]] int countFiles (const juce::File& folder)
{
    return folder.getNumberOfChildFiles (juce::File::findFilesAndDirectories);
}

/** Elements nested deeper than any stack allows. */
[[nodiscard]] std::string nestDeeply()
{
    std::string text = "<PROPERTIES>";

    for (int i = 0; i < 200000; ++i)
        text += "<VALUE name=\"settings\">";

    return text;
}

class BrokenSettings : public testing::TestWithParam<std::string>
{
};
} // namespace

//==============================================================================
TEST_P (BrokenSettings, GiveAnEmptyTreeAndAreReplacedInTheEnd)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    ASSERT_TRUE (file.replaceWithData (GetParam().data(), GetParam().size()));

    expectRun (file, {}, "1200");
    expectRun (file, "1200", "1300");
}

INSTANTIATE_TEST_SUITE_P (
    Files,
    BrokenSettings,
    testing::Values (std::string(),
                     std::string ("no XML at all"),
                     std::string ("<PROPERTIES>"),
                     std::string ("<PROPERTIES><VALUE name=\"settings\"><settings defaultWidth=\"5"),
                     std::string ("<PROPERTIES><VALUE name=\"settings\" val=\"&lt;settings\"/></PROPERTIES>"),
                     std::string ("<PROPERTIES><VALUE name=\"settings\"/></PROPERTIES>"),
                     std::string ("<PROPERTIES><VALUE name=\"\"/><VALUE/><OTHER/></PROPERTIES>"),
                     std::string ("<OTHER><VALUE name=\"settings\"><settings defaultWidth=\"5\"/></VALUE></OTHER>"),
                     std::string ("<!DOCTYPE a [<!ENTITY e \"<b>&e;</b>\">]><PROPERTIES>&e;</PROPERTIES>"),
                     std::string ("<PROPERTIES>&#x"),
                     std::string ("PROP\x01\0\0\0settings\0<a>&#x\0", 25),
                     std::string ("CPRP\x01\0\0\0", 8),
                     std::string ("\xff\xfe\xfd"),
                     std::string ("<PROPERTIES><VALUE name=\"settings\" val=\"&lt;a>&amp;#x\"/></PROPERTIES>"),
                     std::string ("<PROPERTIES><VALUE name=\"other\" val=\"&lt;a>&amp;#x\"/></PROPERTIES>"),
                     std::string ("<PROPERTIES><VALUE name=\"settings\"><a>text<b><c/></b></a></VALUE></PROPERTIES>"),
                     nestDeeply(),
                     std::string (100000, '\0'),
                     std::string (100000, '<'),
                     std::string (5000000, ' ')));

TEST (SettingsFailures, KeepABrokenFileBesideTheNewOne)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    ASSERT_TRUE (
        file.replaceWithText ("<PROPERTIES><VALUE name=\"settings\"><settings defaultWidth=\"5\"></PROPERTIES>&"));

    expectRun (file, {}, "1200");
    EXPECT_TRUE (folder.get().getChildFile ("Orlo.broken").loadFileAsString().contains ("defaultWidth=\"5\""));
}

TEST (SettingsFailures, ReadMalformedNumbersAsZero)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    ASSERT_TRUE (file.replaceWithText (
        "<PROPERTIES><VALUE name=\"settings\"><settings preferedMap=\"red\" lastVersionCheck=\"\"/></VALUE></PROPERTIES>"));

    const InnerData data (file);
    EXPECT_EQ (int (data.getSettings()[SettingsIds::preferedMap]), 0);
    EXPECT_EQ (data.getSettings()[SettingsIds::lastVersionCheck].toString().getLargeIntValue(), 0);
}

TEST (SettingsFailures, LeaveAFolderInTheFilesPlaceAlone)
{
    const orlo::test::TemporaryHome home;
    const auto file = findSettingsFile (InnerData::getOptions());
    ASSERT_TRUE (file.getChildFile ("inside").createDirectory());

    {
        const PluginGlobalSettings handle;
        handle.getSettings().setProperty (SettingsIds::defaultWidth, "1200", nullptr);
        EXPECT_EQ (handle.getSettings()[SettingsIds::defaultWidth].toString(), "1200");
    }

    EXPECT_TRUE (file.getChildFile ("inside").isDirectory());
    EXPECT_EQ (countFiles (file.getParentDirectory()), 1);
}

TEST (SettingsFailures, TolerateAFileInTheFoldersPlace)
{
    const orlo::test::TemporaryFolder folder;
    ASSERT_TRUE (folder.get().getChildFile ("Morlek").replaceWithText ("in the way"));
    expectRun (folder.get().getChildFile ("Morlek/Orlo/Orlo.settings"), {}, "1200");
    EXPECT_EQ (folder.get().getChildFile ("Morlek").loadFileAsString(), "in the way");
}

#if JUCE_LINUX

TEST (SettingsFailures, TolerateAHomeThatIsReadOnly)
{
    const orlo::test::TemporaryHome home;
    const auto file = findSettingsFile (InnerData::getOptions());

    {
        const orlo::test::ReadOnlyFolder readOnly (home.getFolder());
        const PluginGlobalSettings handle;
        handle.getSettings().setProperty (SettingsIds::defaultWidth, "1200", nullptr);
        EXPECT_EQ (handle.getSettings()[SettingsIds::defaultWidth].toString(), "1200");
    }

    EXPECT_FALSE (file.exists());
}

TEST (SettingsFailures, ReadFromAFolderThatIsReadOnlyAndLoseTheRunsChanges)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    expectRun (file, {}, "1000");

    {
        const orlo::test::ReadOnlyFolder readOnly (folder.get());
        expectRun (file, "1000", "1200");
    }

    expectRun (file, "1000", "1000");
}

TEST (SettingsFailures, LeaveABrokenFileThatCannotBeMovedAsItIs)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    ASSERT_TRUE (file.replaceWithText ("<PROPERTIES>&#x"));

    {
        const orlo::test::ReadOnlyFolder readOnly (folder.get());
        expectRun (file, {}, "1200");
    }

    EXPECT_EQ (file.loadFileAsString(), "<PROPERTIES>&#x");
}

TEST (SettingsFailures, SetAsideAPipeOrADeviceInTheFilesPlace)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");

    ASSERT_EQ (mkfifo (file.getFullPathName().toRawUTF8(), 0600), 0);
    expectRun (file, {}, "1000");
    expectRun (file, "1000", "1200");

    ASSERT_TRUE (file.deleteFile());
    ASSERT_TRUE (juce::File ("/dev/zero").createSymbolicLink (file, true));
    expectRun (file, {}, "1000");
    expectRun (file, "1000", "1200");
}

TEST (SettingsFailures, KeepTheFormerFileIfTheDiskFillsUpInTheMiddle)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    expectRun (file, {}, "1000");

    {
        const orlo::test::FileSizeLimit limit (50);
        expectRun (file, "1000", "1200");
    }

    expectRun (file, "1000", "1000");
    EXPECT_EQ (countFiles (folder.get()), 1);
}

TEST (SettingsFailures, KeepTheFormerFileOnARealDiskThatIsFull)
{
    const orlo::test::SmallDisk disk (16);

    if (! disk.isMounted())
        GTEST_SKIP() << "needs the right to mount";

    const auto file = disk.getFolder().getChildFile ("Orlo.settings");
    expectRun (file, {}, "1000");

    const auto filler = disk.getFolder().getChildFile ("filler");
    filler.replaceWithText (juce::String::repeatedString ("0123456789abcdef", 1024));
    ASSERT_EQ (disk.getFolder().getBytesFreeOnVolume(), 0);

    expectRun (file, "1000", "1200");
    ASSERT_TRUE (filler.deleteFile());
    expectRun (file, "1000", "1000");
    EXPECT_EQ (countFiles (disk.getFolder()), 1);
}

TEST (SettingsFailures, KeepTheFormerFileIfTheHostIsKilledInTheMiddle)
{
    const orlo::test::TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("Orlo.settings");
    expectRun (file, {}, "1000");

    const auto run = [&file]
    {
        // Without a handler the signal ends the process within the write.
        const rlimit limit { 0, 0 };
        setrlimit (RLIMIT_FSIZE, &limit);
        expectRun (file, "1000", "1200");
    };

    EXPECT_EXIT ((run(), std::_Exit (0)), testing::KilledBySignal (SIGXFSZ), "");
    expectRun (file, "1000", "1000");
}

#endif

} // namespace mk::pluginCore
