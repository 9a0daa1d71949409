// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/presets/PresetReference.h"
#include "tests/support/TemporaryHome.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class InitialSettingsTest : public testing::Test
{
protected:
    ~InitialSettingsTest() override { settings.getSettings().removeAllProperties (nullptr); }

    void setDefaultPreset (const juce::String& text)
    {
        settings.getSettings().setProperty (pluginCore::SettingsIds::defaultPreset, text, nullptr);
    }

    const TemporaryHome home;
    const pluginCore::PluginGlobalSettings settings;
    TestProcessor processor;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
};

TEST_F (InitialSettingsTest, TheDefaultPresetIsLoadedAndLeavesNothingToUndoOrSave)
{
    const auto file = processor.writePreset ("sub/mine.mkpreset", { { "floor", "-3" } });
    juce::XmlElement xml ("defaultPreset");
    pluginCore::PresetReference::fromFile (file, presets.getFolders()).writeTo (xml);
    setDefaultPreset (xml.toString());

    processor.applyInitialSettings();

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -3.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), file);
    EXPECT_FALSE (presets.isDirty());
    processor.getParameterState().copyState();
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

TEST_F (InitialSettingsTest, ADeletedDefaultPresetLeavesTheDefaultsAndTheSetting)
{
    const auto* const text = "<defaultPreset root='USER' path='gone.mkpreset'/>";
    setDefaultPreset (text);
    processor.applyInitialSettings();
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_EQ (settings.getSettings()[pluginCore::SettingsIds::defaultPreset].toString(), text);
}

TEST_F (InitialSettingsTest, InvalidTextForTheDefaultPresetLoadsNoPreset)
{
    for (const auto* text : { "",
                              "no XML",
                              "<",
                              "<defaultPreset/>",
                              "<defaultPreset root='NONE' path='a.mkpreset'/>",
                              "<defaultPreset root='USER' path='../../../../etc/passwd'/>",
                              "<!DOCTYPE x>" })
    {
        setDefaultPreset (text);
        TestProcessor another;
        another.applyInitialSettings();
        EXPECT_EQ (another.getPresetsManager().getCurrentPresetFile(), juce::File()) << text;
    }
}

TEST_F (InitialSettingsTest, TheInitFileIsNotLoaded)
{
    const auto init = presets.getInitFile();
    ASSERT_TRUE (processor.writePreset ("a.mkpreset", { { "floor", "-3" } }).copyFileTo (init));
    processor.applyInitialSettings();
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
}

TEST_F (InitialSettingsTest, ASessionOverrulesTheDefaultPreset)
{
    const auto file = processor.writePreset ("mine.mkpreset", { { "floor", "-3" }, { "choice", "3" } });
    setDefaultPreset ("<defaultPreset root='USER' path='mine.mkpreset'/>");
    processor.applyInitialSettings();
    processor.restore (*juce::parseXML ("<TestPlugin1><PARAMS><PARAM id='floor' value='-9'/></PARAMS>"
                                        "<lastPreset root='FACTORY' path='x.mkpreset' dirty='1'/></TestPlugin1>"));

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -9.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 1.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), presets.getFactoryFolder().getChildFile ("x.mkpreset"));
    EXPECT_TRUE (presets.isDirty());
}

} // namespace
} // namespace mk::orlo::test
