// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that the texts of the settings panel fit in every language and at every size.
#include "orlo/window/SettingsComponent.h"

#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/LocalisedStringsManager.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/TemporaryHome.h"
#include "tests/support/TestPluginEditor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
// Text that is drawn narrower than this looks squeezed.
constexpr float narrowestText = 0.9f;

struct Size
{
    int windowWidth, width, height;
};

constexpr std::array sizes { Size { 1050, 241, 550 }, Size { 1818, 418, 1000 }, Size { 3840, 883, 2112 } };

class SettingsTextsTest : public testing::TestWithParam<std::tuple<juce::String, Size>>
{
protected:
    SettingsTextsTest() { LocalisedStringsManager().setLanguage (std::get<0> (GetParam())); }
    ~SettingsTextsTest() override { LocalisedStringsManager().setLanguage ("en"); }

    static void expectFits (const juce::String& text, const juce::Font& font, int room)
    {
        const auto width = juce::GlyphArrangement::getStringWidth (font, text);
        EXPECT_LE (width * narrowestText, float (room)) << text;
    }

    const TemporaryHome home;
    AudioPluginAudioProcessor processor;
    TestPluginEditor editor { processor, 0.0 };
};

TEST_P (SettingsTextsTest, Fit)
{
    const auto [windowWidth, width, height] = std::get<1> (GetParam());
    StyledWindow<PluginLookAndFeel> window (windowWidth, height);

    // The processor has chosen the language of the system.
    LocalisedStringsManager().setLanguage (std::get<0> (GetParam()));
    SettingsComponent panel (editor, processor);
    window.add (panel, { 0, 0, width, height });
    panel.sendLookAndFeelChange();
    panel.setOnRetinaDisplay (true);
    panel.updateFreqSliderTextFunctions (384000.0);
    int numTexts = 0;

    for (auto* const child : panel.getChildren())
    {
        if (auto* const tag = dynamic_cast<RetinaParamLabel*> (child))
        {
            for (const auto value : { 0.0f, 1.0f })
            {
                processor.getParameterState().getParameter (Params::id::hiDPI)->setValueNotifyingHost (value);
                expectFits (tag->getText(), tag->getTextFont(), tag->getTextArea().getWidth());
            }

            ++numTexts;
        }
        else if (auto* const label = dynamic_cast<juce::Label*> (child))
        {
            const auto area = label->getBorderSize().subtractedFrom (label->getLocalBounds());
            expectFits (label->getText(), window.style.getLabelFont (*label), area.getWidth());

            // No text starts to the left of the title.
            EXPECT_GE (label->getX() + area.getX(), panel.findChildWithID ("title")->getX());
            ++numTexts;
        }
        else if (auto* const bar = dynamic_cast<ButtonBarComponent*> (child))
        {
            for (int i = 0; i < bar->getNumButtons(); ++i)
            {
                auto& button = bar->getButton (i);
                const auto needed = window.style.getTextButtonWidthToFitText (button, button.getHeight());
                EXPECT_LE (needed - button.getHeight() / 2, button.getWidth()) << button.getButtonText();
                ++numTexts;
            }
        }
        else if (auto* const control = dynamic_cast<pluginCore::PluginSliderControl*> (child))
        {
            auto& slider = control->getSlider();

            for (auto* const below : slider.getChildren())
                if (auto* const text = dynamic_cast<juce::Label*> (below))
                    for (const auto value : { slider.getMinimum(), slider.getMaximum() })
                        expectFits (
                            slider.getTextFromValue (value), window.style.getLabelFont (*text), text->getWidth());

            ++numTexts;
        }
        else if (auto* const box = dynamic_cast<pluginCore::PluginComboBoxControl*> (child))
        {
            auto& comboBox = box->getComboBox();

            for (auto* const below : comboBox.getChildren())
                if (auto* const text = dynamic_cast<juce::Label*> (below))
                    for (int i = 0; i < comboBox.getNumItems(); ++i)
                        expectFits (
                            comboBox.getItemText (i), window.style.getComboBoxFont (comboBox), text->getWidth());

            ++numTexts;
        }
    }

    // The tag, nine labels, four buttons, five sliders and two boxes.
    EXPECT_EQ (numTexts, 21);
}

INSTANTIATE_TEST_SUITE_P (
    EveryLanguageAndSize,
    SettingsTextsTest,
    testing::Combine (testing::Values ("en", "fr", "es", "pt", "it"), testing::ValuesIn (sizes)),
    [] (const auto& parameters)
    { return (std::get<0> (parameters.param) + juce::String (std::get<1> (parameters.param).width)).toStdString(); });
} // namespace
} // namespace mk::orlo::test
