// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests how the values of the settings panel are shown and parsed.
#include "orlo/window/SettingsComponent.h"

#include "SettingsPanel.h"
#include "orlo/parameters/Params.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using SettingsComponentValuesTest = SettingsPanelTest;

TEST_F (SettingsComponentValuesTest, ShowsAndParsesFrequencyLimitsInHertz)
{
    panel.updateFreqSliderTextFunctions (44100.0);
    setValue (Params::id::minFreq, 50.0f);
    EXPECT_TRUE (pumpUntil ([this] { return valueText ("minFreqSlider") == "11025 Hz"; }));

    setValue (Params::id::minFreq, 0.0f);
    type ("minFreqSlider", "11025");
    EXPECT_NEAR (getValue (Params::id::minFreq), 50.0f, 1.0e-4f);
    EXPECT_EQ (valueText ("minFreqSlider"), "11025 Hz");

    type ("minFreqSlider", "440 Hz");
    EXPECT_EQ (valueText ("minFreqSlider"), "440 Hz");
    type ("minFreqSlider", "1.5k");
    EXPECT_EQ (valueText ("minFreqSlider"), "1500 Hz");
    type ("minFreqSlider", "440");
    EXPECT_EQ (valueText ("minFreqSlider"), "440 Hz");
    type ("maxFreqSlider", "99999999");
    EXPECT_EQ (valueText ("maxFreqSlider"), "22050 Hz");
    type ("maxFreqSlider", "none");
    EXPECT_EQ (valueText ("maxFreqSlider"), "0 Hz");
}

TEST_F (SettingsComponentValuesTest, FollowsTheSampleRate)
{
    panel.updateFreqSliderTextFunctions (44100.0);
    EXPECT_EQ (valueText ("maxFreqSlider"), "22050 Hz");
    panel.updateFreqSliderTextFunctions (96000.0);
    EXPECT_EQ (valueText ("maxFreqSlider"), "48000 Hz");

    // Setting the same rate again does not change the texts.
    slider ("maxFreqSlider").textFromValueFunction = [] (double) { return "mine"; };
    panel.updateFreqSliderTextFunctions (96000.0);
    slider ("maxFreqSlider").updateText();
    EXPECT_EQ (valueText ("maxFreqSlider"), "mine");
    panel.updateFreqSliderTextFunctions (48000.0);
    EXPECT_EQ (valueText ("maxFreqSlider"), "24000 Hz");

    for (const auto rate : { 0.0, -1.0 })
    {
        panel.updateFreqSliderTextFunctions (rate);
        EXPECT_EQ (valueText ("maxFreqSlider"), "0 Hz");
    }
}

TEST_F (SettingsComponentValuesTest, FollowsTheHostsSampleRate)
{
    processor.setRateAndBufferSizeDetails (48000.0, 64);
    processor.prepareToPlay (48000.0, 64);
    EXPECT_TRUE (pumpUntil ([this] { return valueText ("maxFreqSlider") == "24000 Hz"; }));
}

TEST_F (SettingsComponentValuesTest, ShowsZeroHertzUntilTheHostSetsTheRate)
{
    EXPECT_EQ (processor.getSampleRate(), 0.0);
    EXPECT_EQ (valueText ("maxFreqSlider"), "0 Hz");
}

TEST_F (SettingsComponentValuesTest, TakesTheFirstRateEvenIfItEqualsThePlaceholder)
{
    setNormalised (Params::id::ruler, 1.0f);
    auto& container = editor.getMainComponent().getSpectrogramContainer();
    EXPECT_EQ (container.getFrequencyScale().getMaxFrequency(), 0.0f);
    EXPECT_TRUE (container.getRuler().getLabels().empty()) << "without a sample rate there are no frequencies";

    processor.prepareToPlay (44100.0, 64);
    EXPECT_TRUE (pumpUntil ([this] { return valueText ("maxFreqSlider") == "22050 Hz"; }))
        << valueText ("maxFreqSlider");
    EXPECT_EQ (container.getFrequencyScale().getMaxFrequency(), 22050.0f);
    ASSERT_TRUE (pumpUntil ([&] { return ! container.getRuler().getLabels().empty(); }));
    EXPECT_EQ (container.getRuler().getLabels().back().text, "22.1k");

    type ("minFreqSlider", "11025");
    EXPECT_NEAR (getValue (Params::id::minFreq), 50.0f, 1.0e-4f);
    EXPECT_EQ (valueText ("minFreqSlider"), "11025 Hz");
}

TEST_F (SettingsComponentValuesTest, KnowsTheRateThatTheHostPreparedEarlier)
{
    AudioPluginAudioProcessor prepared;
    prepared.prepareToPlay (96000.0, 64);
    AudioPluginAudioProcessorEditor laterEditor (prepared);
    auto& main = laterEditor.getMainComponent();
    EXPECT_EQ (main.getSpectrogramContainer().getFrequencyScale().getMaxFrequency(), 48000.0f);

    auto& maxFreq =
        dynamic_cast<pluginCore::PluginSliderControl&> (*main.getSettingsPanel().findChildWithID ("maxFreqSlider"));
    EXPECT_EQ (maxFreq.getSlider().getTextFromValue (100.0), "48000 Hz");
}

TEST_F (SettingsComponentValuesTest, ParsesGainsAsNegative)
{
    type ("ceilingSlider", "40");
    EXPECT_NEAR (getValue (Params::id::ceiling), -40.0f, 1.0e-4f);
    EXPECT_EQ (valueText ("ceilingSlider"), "-40 dB");
    type ("ceilingSlider", "-6 dB");
    EXPECT_NEAR (getValue (Params::id::ceiling), -6.0f, 1.0e-4f);
    type ("floorSlider", "1000");
    EXPECT_NEAR (getValue (Params::id::floor), -140.0f, 1.0e-4f);
    EXPECT_EQ (valueText ("speedSlider"), "40 %");
    type ("speedSlider", "55");
    EXPECT_NEAR (getValue (Params::id::speed), 55.0f, 1.0e-4f);
}

} // namespace
} // namespace mk::orlo::test
