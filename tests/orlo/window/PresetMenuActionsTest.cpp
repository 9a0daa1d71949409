// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/PresetMenuActions.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/presets/PresetReference.h"
#include "tests/support/FindComponents.h"
#include "tests/support/MenuRows.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TemporaryHome.h"
#include "tests/support/WritePreset.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using pluginCore::PresetMenu;

class PresetMenuActionsTest : public testing::Test
{
protected:
    PresetMenuActionsTest()
    {
        processor.applyInitialSettings();
        actions.showPage = [this] (const juce::URL& url) { shownPage = url.toString (true); };
        actions.showFolder = [this] (const juce::File& folder) { shownFolder = folder; };
    }

    ~PresetMenuActionsTest() override { settings.getSettings().removeAllProperties (nullptr); }

    [[nodiscard]] float getValue (const juce::String& id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    void setValue (const juce::String& id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    void perform (int id) { actions.perform (id, actions.makeMenu()); }

    [[nodiscard]] juce::String getDefaultPreset() const
    {
        return settings.getSettings()[pluginCore::SettingsIds::defaultPreset].toString();
    }

    const TemporaryHome home;
    const pluginCore::PluginGlobalSettings settings;
    AudioPluginAudioProcessor processor;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
    PresetMenuActions actions { processor };
    juce::String shownPage;
    juce::File shownFolder;
};

//==============================================================================
TEST_F (PresetMenuActionsTest, DoNothingForADismissedMenu)
{
    const auto before = processor.getStateXml (true)->toString();
    perform (0);
    perform (-1);
    EXPECT_EQ (processor.getStateXml (true)->toString(), before);
    EXPECT_FALSE (processor.getUndoManager().canUndo());
    EXPECT_TRUE (shownPage.isEmpty());
}

TEST_F (PresetMenuActionsTest, SaveWritesTheCurrentFile)
{
    const auto file = writeUserPreset (presets, "mine");
    presets.setCurrentPresetFile (file);
    setValue (Params::id::speed, 77.0f);
    EXPECT_TRUE (presets.isDirty());

    perform (PresetMenu::save);
    EXPECT_FALSE (presets.isDirty());
    EXPECT_TRUE (file.loadFileAsString().contains ("value=\"77.0\"")) << file.loadFileAsString();

    // The preset was saved, not loaded, so there is nothing to undo.
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

TEST_F (PresetMenuActionsTest, SaveWritesNothingWithoutAFile)
{
    perform (PresetMenu::save);
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());

    const auto gone = writeUserPreset (presets, "gone");
    presets.setCurrentPresetFile (gone);
    gone.deleteFile();
    perform (PresetMenu::save);
    EXPECT_FALSE (gone.exists());
}

TEST_F (PresetMenuActionsTest, SaveAsAsksForAFileAndLoadsItOnceItIsSaved)
{
    using Box = juce::FileChooserDialogBox;

    // The system's dialog belongs to another program, so the test cannot operate it.
    if (juce::FileChooser::isPlatformDialogAvailable())
        GTEST_SKIP() << "the system has a save dialog of its own";

    setValue (Params::id::speed, 58.0f);
    ASSERT_EQ (presets.getCurrentPresetFile(), juce::File());
    perform (PresetMenu::saveAs);
    ASSERT_EQ (findWindows<Box>().size(), 1u);

    auto& box = *findWindows<Box>().front();
    findInside<juce::FileBrowserComponent> (box)->setFileName ("Mine.mkpreset");
    box.exitModalState (1);
    const auto file = presets.getUserFolder().getChildFile ("Mine.mkpreset");
    ASSERT_TRUE (pumpUntil ([&] { return presets.getCurrentPresetFile() == file; }));
    EXPECT_TRUE (file.loadFileAsString().contains ("value=\"58.0\""));
    EXPECT_FALSE (presets.isDirty());

    // The preset was loaded, so the load can be undone.
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 58.0f);
}

TEST_F (PresetMenuActionsTest, APresetsRowLoadsIt)
{
    setValue (Params::id::speed, 11.0f);
    writeUserPreset (presets, "a");
    setValue (Params::id::speed, 22.0f);
    const auto second = writeUserPreset (presets, "b");
    setValue (Params::id::speed, 33.0f);

    perform (PresetMenu::firstPreset + 1);
    EXPECT_EQ (presets.getCurrentPresetFile(), second);
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 22.0f);

    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 33.0f);
}

TEST_F (PresetMenuActionsTest, ADeletedPresetLoadsNothing)
{
    const auto file = writeUserPreset (presets, "a");
    const auto menu = actions.makeMenu();
    file.deleteFile();
    setValue (Params::id::speed, 33.0f);

    actions.perform (PresetMenu::firstPreset, menu);
    actions.perform (PresetMenu::firstPreset + 5, menu);
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 33.0f);
}

//==============================================================================
TEST_F (PresetMenuActionsTest, InitResetsEverythingButTheColourMap)
{
    writePreset (presets, presets.getInitFile());

    for (auto* const parameter : processor.getParameters())
        parameter->setValueNotifyingHost (0.7f);

    setValue (Params::id::fftSize, 5.0f);
    setValue (Params::id::freqScale, 4.0f);
    setValue (Params::id::colourMap, 17.0f);
    perform (PresetMenu::init);

    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 17.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), presets.getInitFile());

    for (auto* const parameter : processor.getParameters())
    {
        auto* const ranged = dynamic_cast<juce::RangedAudioParameter*> (parameter);
        ASSERT_NE (ranged, nullptr);

        if (ranged->getParameterID() != Params::id::colourMap)
        {
            EXPECT_NEAR (ranged->getValue(), ranged->getDefaultValue(), 1.0e-6f) << ranged->getParameterID();
        }
    }

    // Undoing Init restores the other values.
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 17.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 70.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::fftSize), 5.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
}

TEST_F (PresetMenuActionsTest, InitCanBeUndoneAndRedoneWithTheSameColours)
{
    writePreset (presets, presets.getInitFile());
    setValue (Params::id::speed, 91.0f);
    setValue (Params::id::colourMap, 17.0f);

    // Records the values that were set meanwhile, as the state's own timer does.
    const auto pump = [this]
    {
        pumpPending();
        static_cast<void> (processor.getParameterState().copyState());
    };

    pump();
    perform (PresetMenu::init);
    pump();
    ASSERT_TRUE (processor.getUndoManager().undo());
    pump();
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 91.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 17.0f);

    ASSERT_TRUE (processor.getUndoManager().redo());
    pump();
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 40.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 17.0f);
}

TEST_F (PresetMenuActionsTest, InitIsOneStepWhateverTheUserDoesNext)
{
    writePreset (presets, presets.getInitFile());
    setValue (Params::id::colourMap, 17.0f);
    setValue (Params::id::speed, 91.0f);
    perform (PresetMenu::init);

    // A control would begin a transaction here, before the state's timer has run.
    processor.getUndoManager().beginNewTransaction();
    setValue (Params::id::speed, 12.0f);
    static_cast<void> (processor.getParameterState().copyState());
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 40.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 17.0f);
}

TEST_F (PresetMenuActionsTest, InitLeavesALockedParameterAlone)
{
    writePreset (presets, presets.getInitFile());
    processor.getSessionState().setLockedParams ({ Params::id::speed });
    setValue (Params::id::speed, 91.0f);
    setValue (Params::id::floor, -50.0f);

    perform (PresetMenu::init);
    EXPECT_NEAR (getValue (Params::id::speed), 91.0f, 1.0e-4f);
    EXPECT_FLOAT_EQ (getValue (Params::id::floor), -100.0f);
}

TEST_F (PresetMenuActionsTest, InitDoesNothingWithoutItsFile)
{
    setValue (Params::id::speed, 91.0f);
    perform (PresetMenu::init);
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 91.0f);
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

//==============================================================================
TEST_F (PresetMenuActionsTest, TheDefaultIsTheFileThatWasCurrentWhenTheMenuOpened)
{
    const auto first = writeUserPreset (presets, "sub/first");
    const auto second = writeUserPreset (presets, "second");
    presets.setCurrentPresetFile (first);
    const auto menu = actions.makeMenu();
    presets.setCurrentPresetFile (second);

    actions.perform (PresetMenu::setAsDefault, menu);
    const auto xml = juce::parseXML (getDefaultPreset());
    ASSERT_NE (xml, nullptr) << getDefaultPreset();
    EXPECT_TRUE (xml->hasTagName ("defaultPreset"));
    EXPECT_EQ (xml->getStringAttribute ("root"), "USER");
    EXPECT_EQ (xml->getStringAttribute ("path"), "sub/first.mkpreset");
    EXPECT_EQ (pluginCore::PresetReference::fromXml (*xml).resolve (presets.getFolders()), first);
    EXPECT_TRUE (getDefaultPreset().startsWith ("<?xml")) << getDefaultPreset();
}

TEST_F (PresetMenuActionsTest, AFactoryPresetCanBeTheDefault)
{
    const auto file = writePreset (presets, presets.getFactoryFolder().getChildFile ("Bass.mkpreset"));
    presets.setCurrentPresetFile (file);
    perform (PresetMenu::setAsDefault);
    EXPECT_TRUE (getDefaultPreset().contains ("FACTORY")) << getDefaultPreset();
}

TEST_F (PresetMenuActionsTest, AFileOutsideThePresetFoldersCannotBeTheDefault)
{
    perform (PresetMenu::setAsDefault);
    EXPECT_TRUE (getDefaultPreset().isEmpty());

    const auto outside = writePreset (presets, home.getFolder().getChildFile ("outside.mkpreset"));
    presets.setCurrentPresetFile (outside);
    perform (PresetMenu::setAsDefault);
    EXPECT_TRUE (getDefaultPreset().isEmpty());

    const auto gone = writeUserPreset (presets, "gone");
    presets.setCurrentPresetFile (gone);
    gone.deleteFile();
    perform (PresetMenu::setAsDefault);
    EXPECT_TRUE (getDefaultPreset().isEmpty());
}

//==============================================================================
TEST_F (PresetMenuActionsTest, OpensTheManualOfThisVersion)
{
    perform (PresetMenu::manual);
    EXPECT_EQ (shownPage, processor.getReleaseNotesUrl() + "/manual.html?s=orlo&v=1.2.1");
}

TEST_F (PresetMenuActionsTest, TheUsersFolderCanBeShown)
{
    perform (PresetMenu::revealFolder);
    EXPECT_EQ (shownFolder, presets.getUserFolder());
}

TEST_F (PresetMenuActionsTest, AaxHasNoDefaultOfItsOwn)
{
    EXPECT_TRUE (findRow (actions.makeMenu().menu, PresetMenu::setAsDefault).has_value());

    juce::AudioProcessor::setTypeOfNextNewPlugin (juce::AudioProcessor::wrapperType_AAX);
    AudioPluginAudioProcessor inAax;
    juce::AudioProcessor::setTypeOfNextNewPlugin (juce::AudioProcessor::wrapperType_Undefined);
    EXPECT_FALSE (findRow (PresetMenuActions (inAax).makeMenu().menu, PresetMenu::setAsDefault).has_value());
}

} // namespace
} // namespace mk::orlo::test
