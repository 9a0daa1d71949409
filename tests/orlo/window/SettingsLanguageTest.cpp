// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that all readable texts of the panel change with the language.
#include "orlo/window/SettingsComponent.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/LocalisedStringsManager.h"
#include "orlo/window/SideBarComponent.h"
#include "tests/support/MenuRows.h"
#include "tests/support/TemporaryHome.h"
#include "tests/support/TestPluginEditor.h"
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <map>

namespace mk::orlo::test
{
namespace
{
/** The texts that a user or a screen reader can read, by their position in the panel. */
using Texts = std::map<juce::String, juce::String>;

class SettingsLanguageTest : public testing::TestWithParam<juce::String>
{
protected:
    ~SettingsLanguageTest() override { LocalisedStringsManager().setLanguage ("en"); }

    [[nodiscard]] Texts readIn (const juce::String& language)
    {
        LocalisedStringsManager().setLanguage (language);
        Texts texts;
        SettingsComponent panel (editor, processor);
        panel.setOnRetinaDisplay (true);
        read (panel, "panel", texts);

        SideBarComponent sideBar (processor);
        read (sideBar, "side bar", texts);

        int row = 0;

        for (const auto& entry : collectRows (panel.getPresetActions().makeMenu().menu))
            if (entry.id != 0)
                texts["menu " + juce::String (row++)] = entry.text;

        return texts;
    }

    static void read (juce::Component& component, const juce::String& place, Texts& texts)
    {
        if (auto* const client = dynamic_cast<juce::TooltipClient*> (&component))
            add (texts, place + " tooltip", client->getTooltip());

        // The preview's title is the name of its map, which is the same in all languages.
        if (dynamic_cast<ColourMapPreviewComponent*> (&component) == nullptr)
            add (texts, place + " title", component.getTitle());

        add (texts, place + " help", component.getHelpText());

        if (auto* const label = dynamic_cast<juce::Label*> (&component))
        {
            // The labels on controls show values, not words.
            if (dynamic_cast<SettingsComponent*> (label->getParentComponent()) != nullptr
                && dynamic_cast<RetinaParamLabel*> (label) == nullptr)
                add (texts, place + " text", label->getText());
        }

        for (int i = 0; i < component.getNumChildComponents(); ++i)
        {
            auto& child = *component.getChildComponent (i);
            const auto id = child.getComponentID();
            read (child, place + "/" + (id.isNotEmpty() ? id : juce::String (i)), texts);
        }
    }

    static void add (Texts& texts, const juce::String& place, const juce::String& text)
    {
        if (text.isNotEmpty())
            texts[place] = text;
    }

    const TemporaryHome home;
    AudioPluginAudioProcessor processor;
    TestPluginEditor editor { processor, 0.0 };
};

TEST_P (SettingsLanguageTest, EveryReadableTextIsTranslated)
{
    auto& presets = processor.getPresetsManager();
    presets.getInitFile().getParentDirectory().createDirectory();
    ASSERT_TRUE (presets.getInitFile().replaceWithText ("x"));

    juce::StringArray keys;

    for (const auto& set : getTranslationSets())
        keys.addArray (TranslationFile (set, "en").getKeys());

    const auto english = readIn ("en");
    const auto other = readIn (GetParam());
    ASSERT_EQ (english.size(), other.size());
    EXPECT_GT (english.size(), 60u);
    int numChanged = 0;

    for (const auto& [place, text] : english)
    {
        ASSERT_TRUE (other.contains (place)) << place;

        // The ellipsis after a text is not translated.
        const auto key = text.endsWith ("...") ? text.dropLastCharacters (3) : text;
        EXPECT_TRUE (keys.contains (key)) << place << ": " << text;
        EXPECT_EQ (other.at (place), juce::translate (key) + text.substring (key.length())) << place;
        numChanged += other.at (place) != text ? 1 : 0;
    }

    // A few words are the same in both languages.
    EXPECT_GT (numChanged, int (english.size()) * 9 / 10);
}

/** The words that a control offers or shows. */
[[nodiscard]] juce::StringArray readChoices (juce::Component& component)
{
    juce::StringArray words;

    if (auto* const bar = dynamic_cast<ButtonBarComponent*> (&component))
        for (int i = 0; i < bar->getNumButtons(); ++i)
            words.add (bar->getButton (i).getButtonText());

    if (auto* const control = dynamic_cast<pluginCore::PluginComboBoxControl*> (&component))
        for (int i = 0; i < control->getComboBox().getNumItems(); ++i)
            words.add (control->getComboBox().getItemText (i));

    if (auto* const label = dynamic_cast<RetinaParamLabel*> (&component))
        words.add (label->getText());

    return words;
}

TEST_P (SettingsLanguageTest, ChoicesAreTranslatedInTheWindowAndStayEnglishForTheHost)
{
    const auto translated = TranslationFile ("product", GetParam()).pairs;
    LocalisedStringsManager().setLanguage (GetParam());
    SettingsComponent panel (editor, processor);

    for (const auto& [place, id] : { std::pair ("modeBar", Params::id::mode),
                                     { "drawModeBar", Params::id::drawMode },
                                     { "hiDPILabel", Params::id::hiDPI },
                                     { "scaleBox", Params::id::freqScale },
                                     { "fftSizeBox", Params::id::fftSize } })
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        const auto& english = dynamic_cast<const juce::AudioParameterChoice&> (parameter).choices;
        const auto words = readChoices (*panel.findChildWithID (place));
        ASSERT_GE (words.size(), 1) << place;

        for (int i = 0; i < words.size(); ++i)
        {
            const auto found = std::find_if (
                translated.begin(), translated.end(), [&] (const auto& pair) { return pair.first == english[i]; });
            EXPECT_EQ (words[i], found != translated.end() ? found->second : english[i]) << place;
            EXPECT_EQ (parameter.getText (parameter.convertTo0to1 (float (i)), 0), english[i]) << place;
        }
    }

    EXPECT_NE (readChoices (*panel.findChildWithID ("modeBar"))[0], "Classic");
    EXPECT_FALSE (readChoices (*panel.findChildWithID ("drawModeBar")).contains ("Static"));
}

TEST_P (SettingsLanguageTest, SwitchesStayEnglishForTheHost)
{
    LocalisedStringsManager().setLanguage (GetParam());
    EXPECT_NE (juce::translate ("On"), "On") << "the word itself is translated";

    for (const auto* const id : { Params::id::freeze, Params::id::ruler, Params::id::keyboard, Params::id::autoFreeze })
    {
        EXPECT_EQ (processor.getParameterState().getParameter (id)->getText (0.0f, 0), "Off") << id;
        EXPECT_EQ (processor.getParameterState().getParameter (id)->getText (1.0f, 0), "On") << id;
    }
}

INSTANTIATE_TEST_SUITE_P (EveryLanguage,
                          SettingsLanguageTest,
                          testing::Values ("fr", "es", "pt", "it"),
                          [] (const auto& parameters) { return parameters.param.toStdString(); });
} // namespace
} // namespace mk::orlo::test
