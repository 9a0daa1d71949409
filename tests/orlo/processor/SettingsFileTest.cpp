// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/FailingDisk.h"
#include "tests/support/TemporaryHome.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

/** Runs the whole plug-in in a temporary home folder with the test's own settings file. */
class SettingsFile : public testing::Test
{
protected:
    [[nodiscard]] static juce::File getFile()
    {
        return pluginCore::findSettingsFile (pluginCore::PluginGlobalSettings::InnerData::getOptions());
    }

    /** Runs the plug-in once, expects it to find no settings, and changes one. */
    static void expectFirstStart()
    {
        AudioPluginAudioProcessor processor { createEditor };
        processor.applyInitialSettings();
        EXPECT_EQ (processor.getPresetsManager().getCurrentPresetFile(), juce::File());
        EXPECT_EQ (processor.getParameterState().getRawParameterValue (Params::id::colourMap)->load(), 0.0f);

        // The framework's window has its size of a first start, before a product's own rules apply.
        TestProcessor framework;
        const std::unique_ptr<juce::AudioProcessorEditor> editor (framework.createEditor());
        EXPECT_EQ (editor->getLocalBounds(), juce::Rectangle<int> (1050, 900));
        framework.editorBeingDeleted (editor.get());

        change (pluginCore::SettingsIds::preferedMap, 7);
        const std::unique_ptr<juce::AudioProcessorEditor> productsEditor (processor.createEditor());
        EXPECT_NE (productsEditor, nullptr);
        juce::MemoryBlock blob;
        processor.getStateInformation (blob);
        EXPECT_GT (blob.getSize(), 0u);
    }

    static void change (const juce::Identifier& key, const juce::var& value)
    {
        pluginCore::PluginGlobalSettings().getSettings().setProperty (key, value, nullptr);
    }

    const TemporaryHome home;
};

TEST_F (SettingsFile, ThatIsDeletedGivesAFirstStartAgain)
{
    {
        AudioPluginAudioProcessor processor { createEditor };
        const auto preset = processor.getPresetsManager().getUserFolder().getChildFile ("a.mkpreset");
        processor.getPresetsManager().savePresetFile (preset, false);
        change (pluginCore::SettingsIds::defaultPreset, "<defaultPreset root='USER' path='a.mkpreset'/>");
        change (pluginCore::SettingsIds::preferedMap, 5);
        change (pluginCore::SettingsIds::defaultWidth, "1200");
        change (pluginCore::SettingsIds::defaultHeight, "700");
    }

    {
        AudioPluginAudioProcessor processor { createEditor };
        processor.applyInitialSettings();
        EXPECT_EQ (processor.getPresetsManager().getCurrentPresetFile().getFileName(), "a.mkpreset");
        EXPECT_EQ (processor.getParameterState().getRawParameterValue (Params::id::colourMap)->load(), 4.0f);
    }

    ASSERT_TRUE (getFile().deleteFile());
    expectFirstStart();
}

TEST_F (SettingsFile, ThatIsBrokenGivesAFirstStart)
{
    ASSERT_TRUE (getFile().getParentDirectory().createDirectory());
    ASSERT_TRUE (getFile().replaceWithText ("<PROPERTIES><VALUE name=\"settings\"><settings preferedMap=\"5"));
    expectFirstStart();
    EXPECT_EQ (int (pluginCore::PluginGlobalSettings().getSettings()[pluginCore::SettingsIds::preferedMap]), 7);
}

TEST_F (SettingsFile, ThatIsAFolderGivesAFirstStart)
{
    ASSERT_TRUE (getFile().getChildFile ("inside").createDirectory());
    expectFirstStart();
    EXPECT_TRUE (getFile().getChildFile ("inside").isDirectory());
}

TEST_F (SettingsFile, ThatCannotBeWrittenGivesAFirstStartEachTime)
{
    const ReadOnlyFolder readOnly (home.getFolder());
    expectFirstStart();
    expectFirstStart();
    EXPECT_FALSE (getFile().exists());
}

TEST_F (SettingsFile, WithWordsInsteadOfNumbersGivesAFirstStart)
{
    ASSERT_TRUE (getFile().getParentDirectory().createDirectory());
    ASSERT_TRUE (getFile().replaceWithText (
        "<PROPERTIES><VALUE name=\"settings\"><settings preferedMap=\"red\" defaultWidth=\"wide\" "
        "defaultHeight=\"-5\" defaultPreset=\"&lt;\"/></VALUE></PROPERTIES>"));
    expectFirstStart();
}

TEST_F (SettingsFile, IsSharedByAllInstancesAndWrittenWhenTheLastIsDestroyed)
{
    auto first = std::make_unique<AudioPluginAudioProcessor>();
    auto second = std::make_unique<AudioPluginAudioProcessor>();
    change (pluginCore::SettingsIds::preferedMap, 3);
    AudioPluginAudioProcessor().applyInitialSettings();

    first.reset();
    EXPECT_FALSE (getFile().exists());
    second->applyInitialSettings();
    EXPECT_EQ (second->getParameterState().getRawParameterValue (Params::id::colourMap)->load(), 2.0f);
    second.reset();
    EXPECT_TRUE (getFile().existsAsFile());
}

} // namespace
} // namespace mk::orlo::test
