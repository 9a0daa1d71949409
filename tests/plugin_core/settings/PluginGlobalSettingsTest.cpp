// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/settings/PluginGlobalSettings.h"

#include "tests/support/MessageLoop.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>
#include <vector>

namespace mk::pluginCore
{
namespace
{
/** Each test has a user of its own. */
class GlobalSettings : public testing::Test
{
protected:
    [[nodiscard]] static juce::File getFile()
    {
        return findSettingsFile (PluginGlobalSettings::InnerData::getOptions());
    }

    static void writeFile (const juce::String& text)
    {
        ASSERT_TRUE (getFile().getParentDirectory().createDirectory());
        ASSERT_TRUE (getFile().replaceWithText (text));
    }

    /** What the next process reads. */
    [[nodiscard]] static juce::var readLater (const juce::Identifier& key)
    {
        return PluginGlobalSettings().getSettings().getProperty (key);
    }

    static void set (const juce::Identifier& key, const juce::var& value)
    {
        PluginGlobalSettings().getSettings().setProperty (key, value, nullptr);
    }

    const orlo::test::TemporaryHome home;
};
} // namespace

//==============================================================================
TEST_F (GlobalSettings, LieInAFolderOfTheCompanyAndTheProduct)
{
    EXPECT_EQ (getFile().getFileName(), "Orlo.settings");
    EXPECT_EQ (getFile().getParentDirectory().getFileName(), "Orlo");
    EXPECT_EQ (getFile().getParentDirectory().getParentDirectory().getFileName(), "Morlek");

#if ! JUCE_WINDOWS
    EXPECT_TRUE (getFile().isAChildOf (home.getFolder()));
#endif
}

TEST_F (GlobalSettings, HaveTheOptionsThatFilesInUseWereWrittenWith)
{
    const auto options = PluginGlobalSettings::InnerData::getOptions();
    EXPECT_EQ (options.applicationName, "Orlo");
    EXPECT_EQ (options.filenameSuffix, "settings");
    EXPECT_EQ (options.folderName, "Morlek" + juce::File::getSeparatorString() + "Orlo");
    EXPECT_EQ (options.osxLibrarySubFolder, "Application Support");
    EXPECT_FALSE (options.commonToAllUsers);
    EXPECT_FALSE (options.ignoreCaseOfKeyNames);
    EXPECT_FALSE (options.doNotSave);
    EXPECT_EQ (options.millisecondsBeforeSaving, 10);
    EXPECT_EQ (options.storageFormat, juce::PropertiesFile::storeAsXML);
    EXPECT_EQ (options.processLock, nullptr);
}

TEST_F (GlobalSettings, SpellTheirKeysAsInTheFile)
{
    EXPECT_EQ (SettingsIds::settings.toString(), "settings");
    EXPECT_EQ (SettingsIds::defaultPreset.toString(), "defaultPreset");
    EXPECT_EQ (SettingsIds::preferedMap.toString(), "preferedMap");
    EXPECT_EQ (SettingsIds::checkForUpdates.toString(), "checkForUpdates");
    EXPECT_EQ (SettingsIds::lastVersionCheck.toString(), "lastVersionCheck");
    EXPECT_EQ (SettingsIds::lastChangeLogTime.toString(), "lastChangeLogTime");
    EXPECT_EQ (SettingsIds::defaultWidth.toString(), "defaultWidth");
    EXPECT_EQ (SettingsIds::defaultHeight.toString(), "defaultHeight");
    EXPECT_EQ (SettingsIds::lastExportFile.toString(), "lastExportFile");
    EXPECT_EQ (SettingsIds::latestCleanViewBounds.toString(), "latestCleanViewBounds");
    EXPECT_EQ (SettingsIds::lastWidth.toString(), "lastWidth");
    EXPECT_EQ (SettingsIds::lastHeight.toString(), "lastHeight");
}

//==============================================================================
TEST_F (GlobalSettings, StartEmptyWithoutAFileAndWriteNoDefaults)
{
    const PluginGlobalSettings handle;
    EXPECT_EQ (handle.getSettings().getType(), SettingsIds::settings);
    EXPECT_EQ (handle.getSettings().getNumProperties(), 0);
    EXPECT_FALSE (getFile().exists());
}

TEST_F (GlobalSettings, ShareOneTreeAmongAllHandlesOfTheProcess)
{
    const PluginGlobalSettings first, second;
    const auto copy = second;

    first.getSettings().setProperty (SettingsIds::preferedMap, 7, nullptr);
    EXPECT_EQ (int (second.getSettings()[SettingsIds::preferedMap]), 7);
    EXPECT_EQ (&first.getInnerData(), &second.getInnerData());
    EXPECT_EQ (&first.getInnerData(), &copy.getInnerData());
}

TEST_F (GlobalSettings, AreWrittenWhenTheLastHandleIsDeletedAndNoSooner)
{
    std::optional<PluginGlobalSettings> first (std::in_place), second (std::in_place);
    first->getSettings().setProperty (SettingsIds::defaultWidth, "1200", nullptr);
    second->getSettings().setProperty (SettingsIds::defaultHeight, "800", nullptr);

    first.reset();
    orlo::test::pumpPending();
    EXPECT_FALSE (getFile().exists());

    second.reset();
    EXPECT_TRUE (getFile().existsAsFile());
    EXPECT_EQ (readLater (SettingsIds::defaultWidth), "1200");
    EXPECT_EQ (readLater (SettingsIds::defaultHeight), "800");
}

TEST_F (GlobalSettings, AreStoredAsAnElementWithOneAttributePerKey)
{
    const juce::String path (juce::CharPointer_UTF8 ("/home/caf\xc3\xa9/\"a\" & <b>.png"));
    set (SettingsIds::lastExportFile, path);
    set (SettingsIds::preferedMap, 3);

    const auto xml = juce::parseXML (getFile());
    ASSERT_NE (xml, nullptr);
    EXPECT_EQ (xml->getTagName(), "PROPERTIES");
    EXPECT_EQ (xml->getNumAttributes(), 0);
    ASSERT_EQ (xml->getNumChildElements(), 1);

    const auto* const value = xml->getFirstChildElement();
    EXPECT_EQ (value->getTagName(), "VALUE");
    EXPECT_EQ (value->getNumAttributes(), 1);
    EXPECT_EQ (value->getStringAttribute ("name"), "settings");
    ASSERT_EQ (value->getNumChildElements(), 1);

    const auto* const settings = value->getFirstChildElement();
    EXPECT_EQ (settings->getTagName(), "settings");
    EXPECT_EQ (settings->getNumAttributes(), 2);
    EXPECT_EQ (settings->getStringAttribute ("preferedMap"), "3");
    EXPECT_EQ (settings->getStringAttribute ("lastExportFile"), path);
}

TEST_F (GlobalSettings, KeepTextOfAnyKindThroughTheFile)
{
    const juce::String preset (
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n\r\n<defaultPreset root=\"USER\" path=\"a/b "
        "&amp; c.mkpreset\"/>\r\n");
    set (SettingsIds::defaultPreset, preset);
    EXPECT_EQ (readLater (SettingsIds::defaultPreset), preset);
}

TEST_F (GlobalSettings, ReadAFileWrittenByHand)
{
    writeFile ("<PROPERTIES><VALUE name=\"settings\"><settings checkForUpdates=\"0\" preferedMap=\"12\"/></VALUE>"
               "</PROPERTIES>");

    const PluginGlobalSettings handle;
    EXPECT_EQ (handle.getSettings()[SettingsIds::checkForUpdates].toString(), "0");
    EXPECT_EQ (int (handle.getSettings()[SettingsIds::preferedMap]), 12);
    EXPECT_FALSE (handle.getSettings().hasProperty (SettingsIds::defaultWidth));
}

TEST_F (GlobalSettings, ReadATreeFromTheValuesAttribute)
{
    writeFile (
        "<PROPERTIES><VALUE name=\"settings\" val=\"&lt;settings defaultWidth=&quot;900&quot;/>\"/></PROPERTIES>");
    EXPECT_EQ (readLater (SettingsIds::defaultWidth), "900");
}

TEST_F (GlobalSettings, KeepReservedAndUnknownKeys)
{
    writeFile ("<PROPERTIES><VALUE name=\"settings\"><settings lastWidth=\"1\" later=\"2\"><child x=\"3\"/></settings>"
               "</VALUE><VALUE name=\"other\" val=\"4\"/></PROPERTIES>");

    set (SettingsIds::preferedMap, 1);

    const PluginGlobalSettings handle;
    EXPECT_EQ (handle.getSettings()[SettingsIds::lastWidth].toString(), "1");
    EXPECT_EQ (handle.getSettings()["later"].toString(), "2");
    EXPECT_EQ (handle.getSettings().getChildWithName ("child")["x"].toString(), "3");
    EXPECT_EQ (handle.getInnerData().getValue ("other"), "4");
}

TEST_F (GlobalSettings, AreReadByAPlainPropertiesFile)
{
    set (SettingsIds::defaultWidth, "1200");
    const juce::PropertiesFile file (getFile(), PluginGlobalSettings::InnerData::getOptions());
    const auto xml = file.getXmlValue ("settings");
    ASSERT_NE (xml, nullptr);
    EXPECT_EQ (xml->getStringAttribute ("defaultWidth"), "1200");
}

TEST_F (GlobalSettings, GoBackToTheirDefaultsWhenTheFileIsDeleted)
{
    set (SettingsIds::defaultWidth, "1200");
    ASSERT_TRUE (getFile().deleteFile());
    EXPECT_TRUE (readLater (SettingsIds::defaultWidth).isVoid());
}

//==============================================================================
TEST_F (GlobalSettings, AreThoseOfTheLastProcessToClose)
{
    std::optional<PluginGlobalSettings::InnerData> first (std::in_place), second (std::in_place);
    first->getSettings().setProperty (SettingsIds::preferedMap, 1, nullptr);
    second->getSettings().setProperty (SettingsIds::defaultWidth, "1200", nullptr);

    second.reset();
    first.reset();

    EXPECT_EQ (int (readLater (SettingsIds::preferedMap)), 1);
    EXPECT_TRUE (readLater (SettingsIds::defaultWidth).isVoid());
}

TEST_F (GlobalSettings, AreNeverSeenHalfWrittenByAnotherProcess)
{
    constexpr int numRuns = 100;
    const juce::String longText = juce::String::repeatedString ("path/", 10000);
    std::atomic<bool> finished { false };

    std::thread writer (
        [&]
        {
            for (int run = 0; run < numRuns; ++run)
                PluginGlobalSettings::InnerData().getSettings().setProperty (
                    SettingsIds::lastExportFile, longText + juce::String (run), nullptr);

            finished.store (true, std::memory_order_release);
        });

    int numReads = 0;

    while (! finished.load (std::memory_order_acquire))
    {
        if (! getFile().existsAsFile())
            continue;

        const auto xml = juce::parseXML (getFile());
        ++numReads;

        EXPECT_NE (xml, nullptr);
        if (xml == nullptr)
            break;

        EXPECT_TRUE (xml->getFirstChildElement()
                         ->getFirstChildElement()
                         ->getStringAttribute ("lastExportFile")
                         .startsWith (longText));
    }

    writer.join();
    EXPECT_GT (numReads, 0);
}

TEST_F (GlobalSettings, SurviveHandlesCreatedAndDeletedOnSeveralThreads)
{
    set (SettingsIds::defaultWidth, "1200");

    std::atomic<int> numLost { 0 };
    std::vector<std::thread> threads;

    for (int i = 0; i < 4; ++i)
        threads.emplace_back (
            [&numLost]
            {
                for (int run = 0; run < 50; ++run)
                {
                    const PluginGlobalSettings handle;

                    if (handle.getSettings()[SettingsIds::defaultWidth].toString() != "1200")
                        numLost.fetch_add (1, std::memory_order_relaxed);
                }
            });

    for (auto& thread : threads)
        thread.join();

    EXPECT_EQ (numLost.load (std::memory_order_relaxed), 0);
    EXPECT_EQ (readLater (SettingsIds::defaultWidth), "1200");
}

TEST_F (GlobalSettings, LoseNoChangeThroughAHandleCreatedWhileTheLastOneIsWriting)
{
    constexpr int numRuns = 200;
    std::atomic<bool> finished { false };

    // Keeps creating a handle, so that the other thread's handle is the last one in some runs and not in
    // others, at any point of its deletion.
    std::thread other (
        [&finished]
        {
            while (! finished.load (std::memory_order_acquire))
            {
                const PluginGlobalSettings handle;
            }
        });

    int numLost = 0;

    for (int run = 0; run < numRuns; ++run)
    {
        const PluginGlobalSettings handle;

        if (run > 0 && int (handle.getSettings()[SettingsIds::preferedMap]) != run - 1)
            ++numLost;

        handle.getSettings().setProperty (SettingsIds::preferedMap, run, nullptr);
    }

    finished.store (true, std::memory_order_release);
    other.join();

    EXPECT_EQ (numLost, 0);
    EXPECT_EQ (int (readLater (SettingsIds::preferedMap)), numRuns - 1);
}

TEST_F (GlobalSettings, AreSharedByACopyOfAHandle)
{
    auto first = std::make_optional<PluginGlobalSettings>();
    const PluginGlobalSettings copy (*first);
    first->getSettings().setProperty (SettingsIds::preferedMap, 7, nullptr);
    first.reset();
    EXPECT_FALSE (getFile().existsAsFile()) << "the copy is still there";
    EXPECT_EQ (int (copy.getSettings()[SettingsIds::preferedMap]), 7);
}

} // namespace mk::pluginCore
