// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/presets/PresetsManager.h"

#include "plugin_core/files/UntrustedXml.h"
#include "tests/support/FailingDisk.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <vector>

#if ! JUCE_WINDOWS
    #include <sys/stat.h>
#endif

namespace mk::orlo::test
{
namespace
{

/** Records the callbacks of the manager. */
struct Notifications final : pluginCore::PresetsManager::Listener
{
    explicit Notifications (pluginCore::PresetsManager& managerToWatch) : manager (managerToWatch)
    {
        manager.addListener (this);
    }

    ~Notifications() override { manager.removeListener (this); }

    void presetFileLoaded (pluginCore::PresetsManager&, const juce::File& file) override
    {
        events.push_back ("loaded " + file.getFileName());
    }

    void presetDirtyChanged (pluginCore::PresetsManager&, bool isDirty) override
    {
        events.push_back (isDirty ? "dirty" : "clean");
    }

    pluginCore::PresetsManager& manager;
    std::vector<juce::String> events;
};

using Events = std::vector<juce::String>;

class PresetsManagerTest : public testing::Test
{
protected:
    PresetsManagerTest() { processor.applyInitialSettings(); }

    /** A file of the user's with any content. */
    [[nodiscard]] juce::File writeFile (const juce::String& name, const juce::String& content) const
    {
        auto file = presets.getUserFolder().getChildFile (name);
        file.replaceWithText (content);
        return file;
    }

    TestProcessor processor;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
};

//==============================================================================
TEST_F (PresetsManagerTest, StartsWithNoPreset)
{
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_FALSE (presets.isDirty());
    EXPECT_FALSE (presets.isLoading());
    EXPECT_EQ (presets.createLastPresetXml(), nullptr);
}

TEST_F (PresetsManagerTest, APresetFileExistsIsVisibleAndHasTheExtension)
{
    EXPECT_TRUE (presets.isPresetFile (writeFile ("a.mkpreset", "")));
    EXPECT_FALSE (presets.isPresetFile (writeFile (".a.mkpreset", "")));
    EXPECT_FALSE (presets.isPresetFile (writeFile ("a.xml", "")));
    EXPECT_FALSE (presets.isPresetFile (juce::File()));
    EXPECT_FALSE (presets.isPresetFile (presets.getUserFolder().getChildFile ("missing.mkpreset")));

    const auto folder = presets.getUserFolder().getChildFile ("folder.mkpreset");
    ASSERT_TRUE (folder.createDirectory());
    EXPECT_FALSE (presets.isPresetFile (folder));
}

//==============================================================================
TEST_F (PresetsManagerTest, ALoadedPresetSetsTheParametersAndIsCurrent)
{
    const auto file = processor.writePreset ("a.mkpreset", { { "floor", "-30" }, { "choice", "3" } });
    processor.setValue ("ceiling", -6.0f);
    const Notifications notifications (presets);

    EXPECT_TRUE (presets.loadPresetFile (file, nullptr));

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -30.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 3.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), 0.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), file);
    EXPECT_FALSE (presets.isDirty());
    EXPECT_FALSE (presets.isLoading());
    EXPECT_EQ (notifications.events, (Events { "clean", "loaded a.mkpreset" }));
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

TEST_F (PresetsManagerTest, LoadingTheCurrentPresetAgainAppliesItAndClearsTheFlag)
{
    const auto file = processor.writePreset ("a.mkpreset", { { "floor", "-30" } });
    ASSERT_TRUE (presets.loadPresetFile (file, nullptr));
    processor.setValue ("floor", -20.0f);
    EXPECT_TRUE (presets.isDirty());

    EXPECT_TRUE (presets.loadPresetFile (file, nullptr));
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -30.0f);
    EXPECT_FALSE (presets.isDirty());
}

TEST_F (PresetsManagerTest, APresetThatCannotBeReadChangesNothing)
{
    const auto good = processor.writePreset ("good.mkpreset", { { "floor", "-30" } });
    ASSERT_TRUE (presets.loadPresetFile (good, nullptr));
    processor.setValue ("floor", -31.0f);
    const Notifications notifications (presets);

    const juce::File missing = presets.getUserFolder().getChildFile ("missing.mkpreset");
    const auto nested = juce::String::repeatedString ("<a>", 100000);
    const juce::String entities (
        "<?xml version='1.0'?><!DOCTYPE a [<!ENTITY a \"&a;&a;\">]><TestPlugin1>&a;</TestPlugin1>");

    for (const auto& file : { missing,
                              presets.getUserFolder(),
                              juce::File(),
                              writeFile ("empty.mkpreset", ""),
                              writeFile ("text.mkpreset", "no XML"),
                              writeFile ("cut.mkpreset", "<TestPlugin1><PARAMS>"),
                              writeFile ("nested.mkpreset", nested),
                              writeFile ("entities.mkpreset", entities) })
    {
        EXPECT_FALSE (presets.loadPresetFile (file, nullptr)) << file.getFileName();
        EXPECT_FALSE (presets.loadPresetFile (file, &processor.getUndoManager())) << file.getFileName();
        EXPECT_EQ (presets.getCurrentPresetFile(), good);
        EXPECT_FLOAT_EQ (processor.getValue ("floor"), -31.0f);
        EXPECT_TRUE (presets.isDirty());
        EXPECT_FALSE (presets.isLoading());
    }

    EXPECT_TRUE (notifications.events.empty());
}

#if ! JUCE_WINDOWS
TEST_F (PresetsManagerTest, APipeInThePlaceOfAPresetIsNotRead)
{
    const auto pipe = presets.getUserFolder().getChildFile ("pipe.mkpreset");
    ASSERT_EQ (mkfifo (pipe.getFullPathName().toRawUTF8(), 0600), 0);
    EXPECT_FALSE (presets.loadPresetFile (pipe, nullptr));
}
#endif

TEST_F (PresetsManagerTest, AnotherProductsPresetBecomesCurrentButMovesNothing)
{
    const auto file = writeFile ("other.mkpreset", "<Other><PARAMS><PARAM id='floor' value='-1'/></PARAMS></Other>");
    processor.setValue ("floor", -31.0f);
    const Notifications notifications (presets);

    EXPECT_TRUE (presets.loadPresetFile (file, nullptr));
    EXPECT_EQ (presets.getCurrentPresetFile(), file);
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -31.0f);
    EXPECT_EQ (notifications.events, (Events { "clean", "loaded other.mkpreset" }));
}

TEST_F (PresetsManagerTest, APresetWithoutParametersStillBringsItsData)
{
    processor.setValue ("floor", -31.0f);
    ASSERT_TRUE (presets.loadPresetFile (writeFile ("data.mkpreset", "<TestPlugin1><Data key='value'/></TestPlugin1>"),
                                         nullptr));
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -31.0f);
    EXPECT_EQ (processor.getSessionState().getData().getTree()["key"].toString(), "value");
}

TEST_F (PresetsManagerTest, APresetBringsNothingThatBelongsToASession)
{
    auto& state = processor.getSessionState();
    state.pluginEditorWidth = 700;
    state.setLockedParams ({ "flag" });
    ASSERT_TRUE (presets.loadPresetFile (
        writeFile ("a.mkpreset",
                   "<TestPlugin1 pluginEditorWidth='5' lockedParams='floor'><Settings key='value'/>"
                   "<lastPreset root='USER' path='x.mkpreset' dirty='1'/></TestPlugin1>"),
        nullptr));

    EXPECT_EQ (state.pluginEditorWidth, 700);
    EXPECT_EQ (state.getLockedParams(), juce::StringArray ("flag"));
    EXPECT_FALSE (state.getSettings().getTree().hasProperty ("key"));
    EXPECT_EQ (presets.getCurrentPresetFile().getFileName(), "a.mkpreset");
    EXPECT_FALSE (presets.isDirty());
}

TEST_F (PresetsManagerTest, ALockedParameterSurvivesEveryPresetIncludingInit)
{
    processor.getSessionState().setLockedParams ({ "floor", "ceiling" });
    processor.setValue ("floor", -31.0f);
    processor.setValue ("ceiling", -3.0f);
    const auto preset =
        processor.writePreset ("a.mkpreset", { { "floor", "-1" }, { "ceiling", "-2" }, { "choice", "3" } });
    const auto init = presets.getInitFile();
    ASSERT_TRUE (preset.copyFileTo (init));

    for (const auto& file : { preset, init })
    {
        processor.setValue ("choice", 0.0f);
        ASSERT_TRUE (presets.loadPresetFile (file, &processor.getUndoManager()));
        EXPECT_FLOAT_EQ (processor.getValue ("floor"), -31.0f);
        EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), -3.0f);
        EXPECT_FLOAT_EQ (processor.getValue ("choice"), 3.0f);
    }
}

TEST_F (PresetsManagerTest, ALoadAsksTheAudioThreadToReset)
{
    processor.runBlock();
    EXPECT_EQ (processor.numResets, 0);
    EXPECT_FALSE (processor.isStateRestored());
    ASSERT_TRUE (presets.loadPresetFile (processor.writePreset ("a.mkpreset", {}), nullptr));
    EXPECT_TRUE (processor.isStateRestored());
    processor.runBlock();
    processor.runBlock();
    EXPECT_EQ (processor.numResets, 1);
}

//==============================================================================
TEST_F (PresetsManagerTest, TheFirstMoveAfterALoadSetsTheFlagAndFurtherOnesReportNothing)
{
    ASSERT_TRUE (presets.loadPresetFile (processor.writePreset ("a.mkpreset", {}), nullptr));
    const Notifications notifications (presets);
    processor.setValue ("floor", -31.0f);
    processor.setValue ("floor", -32.0f);
    processor.setValue ("flag", 1.0f);
    EXPECT_EQ (notifications.events, (Events { "dirty" }));
}

TEST_F (PresetsManagerTest, AMessageWithoutAChangeDoesNotSetTheFlag)
{
    processor.setValue ("floor", processor.getValue ("floor"));
    EXPECT_FALSE (presets.isDirty());
}

TEST_F (PresetsManagerTest, WhileTheFlagIsLockedNothingSetsIt)
{
    processor.setDirtyLocked (true);
    processor.setValue ("floor", -31.0f);
    processor.setDirty();
    EXPECT_FALSE (presets.isDirty());

    processor.setDirtyLocked (false);
    processor.setValue ("floor", -32.0f);
    EXPECT_TRUE (presets.isDirty());
}

//==============================================================================
TEST_F (PresetsManagerTest, ASavedPresetHoldsTheStateInTheFileFormat)
{
    const auto file = presets.getUserFolder().getChildFile ("sub/Saved.mkpreset");
    processor.setValue ("floor", -31.0f);
    processor.getSessionState().getSettings().getTree().getOrCreateChildWithName ("VIEW", nullptr);
    processor.getSessionState().setLockedParams ({ "flag" });
    const Notifications notifications (presets);

    presets.savePresetFile (file, false);

    EXPECT_EQ (file.loadFileAsString(),
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n\r\n"
               "<TestPlugin1 version=\"4.5.6\">\r\n"
               "  <PARAMS>\r\n"
               "    <PARAM id=\"floor\" value=\"-31.0\"/>\r\n"
               "    <PARAM id=\"ceiling\" value=\"0.0\"/>\r\n"
               "    <PARAM id=\"skewed\" value=\"0.0\"/>\r\n"
               "    <PARAM id=\"choice\" value=\"1.0\"/>\r\n"
               "    <PARAM id=\"flag\" value=\"0.0\"/>\r\n"
               "  </PARAMS>\r\n"
               "</TestPlugin1>\r\n");
    EXPECT_EQ (presets.getCurrentPresetFile(), file);
    EXPECT_EQ (notifications.events, (Events { "clean" }));
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

TEST_F (PresetsManagerTest, TheProductsDataGoesIntoAPreset)
{
    const auto file = presets.getUserFolder().getChildFile ("Saved.mkpreset");
    auto tree = processor.getSessionState().getData().getTree();
    tree.setProperty ("key", "value", nullptr);
    presets.savePresetFile (file, false);
    tree.setProperty ("key", "other", nullptr);
    ASSERT_TRUE (presets.loadPresetFile (file, nullptr));
    EXPECT_EQ (tree["key"].toString(), "value");
}

TEST_F (PresetsManagerTest, SavingAndReloadingIsAStepToUndo)
{
    processor.setValue ("floor", -31.0f);
    const Notifications notifications (presets);
    const auto file = presets.getUserFolder().getChildFile ("Saved.mkpreset");

    presets.savePresetFile (file, true);

    EXPECT_EQ (notifications.events, (Events { "clean", "loaded Saved.mkpreset" }));
    EXPECT_TRUE (processor.getUndoManager().canUndo());
}

TEST_F (PresetsManagerTest, AFailedSaveOverAnOlderPresetKeepsTheUsersSettings)
{
    const auto file = presets.getUserFolder().getChildFile ("Saved.mkpreset");
    presets.savePresetFile (file, true);
    processor.setValue ("floor", -31.0f);

    {
        const FileSizeLimit fullDisk (64);
        presets.savePresetFile (file, true);
    }

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -31.0f);
    EXPECT_TRUE (presets.isDirty()) << "these settings are not saved yet";
}

TEST_F (PresetsManagerTest, AFailedSaveLeavesTheOldFileButSelectsTheNewOne)
{
    const auto file = presets.getUserFolder().getChildFile ("Saved.mkpreset");
    presets.savePresetFile (file, false);
    const auto before = file.loadFileAsString();
    processor.setValue ("floor", -31.0f);

    {
        const FileSizeLimit fullDisk (64);
        presets.savePresetFile (file, false);
    }

    EXPECT_EQ (file.loadFileAsString(), before);
    EXPECT_EQ (presets.getUserFolder().getNumberOfChildFiles (juce::File::findFiles), 1);

    const auto other = presets.getUserFolder().getChildFile ("Other.mkpreset");
    const ReadOnlyFolder readOnly (presets.getUserFolder());
    presets.savePresetFile (other, true);

    EXPECT_FALSE (other.exists());
    EXPECT_EQ (presets.getCurrentPresetFile(), other);
}

} // namespace
} // namespace mk::orlo::test
