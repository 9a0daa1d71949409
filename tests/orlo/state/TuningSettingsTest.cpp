// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/state/TuningSettings.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/state/StateBlob.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class TuningSettingsTest : public testing::Test
{
protected:
    ~TuningSettingsTest() override { user.getSettings().removeAllProperties (nullptr); }

    static void restore (AudioPluginAudioProcessor& processor, const juce::String& view)
    {
        const auto xml = juce::parseXML ("<Orlo><Settings><UIVIEW " + view + "/></Settings></Orlo>");
        const auto blob = pluginCore::writeStateBlob (*xml);
        processor.setStateInformation (blob.getData(), int (blob.getSize()));
    }

    const pluginCore::PluginGlobalSettings user;
    AudioPluginAudioProcessor processor;
    data::TuningSettings tuning { processor.getUIView() };
};

TEST_F (TuningSettingsTest, IsThatOfTheHostAt440HertzUntilSomethingIsChosen)
{
    EXPECT_EQ (tuning.getConcertPitch(), 440.0);
    EXPECT_EQ (tuning.getMiddleC(), std::nullopt);
    processor.applyInitialSettings();
    EXPECT_EQ (processor.getUIView().concertPitch.get(), "");
    EXPECT_EQ (processor.getUIView().middleC.get(), "");
}

TEST_F (TuningSettingsTest, IsRememberedForTheUserAndInTheSession)
{
    tuning.setConcertPitch (442.5);
    tuning.setMiddleC (5);

    juce::MemoryBlock session;
    processor.getStateInformation (session);

    AudioPluginAudioProcessor fresh;
    fresh.applyInitialSettings();
    EXPECT_EQ (data::TuningSettings (fresh.getUIView()).getConcertPitch(), 442.5);
    EXPECT_EQ (data::TuningSettings (fresh.getUIView()).getMiddleC(), 5);

    // The session keeps its own when the user chooses another one elsewhere, and so does the new instance.
    data::TuningSettings (fresh.getUIView()).setConcertPitch (415.0);
    data::TuningSettings (fresh.getUIView()).setMiddleC (std::nullopt);
    EXPECT_EQ (tuning.getConcertPitch(), 442.5);

    AudioPluginAudioProcessor restored;
    restored.applyInitialSettings();
    EXPECT_EQ (data::TuningSettings (restored.getUIView()).getConcertPitch(), 415.0);
    restored.setStateInformation (session.getData(), int (session.getSize()));
    EXPECT_EQ (data::TuningSettings (restored.getUIView()).getConcertPitch(), 442.5);
    EXPECT_EQ (data::TuningSettings (restored.getUIView()).getMiddleC(), 5);
}

TEST_F (TuningSettingsTest, OfASessionThatHasNoneIsTheUsers)
{
    tuning.setConcertPitch (443.0);
    restore (processor, "CLEAN_VIEW_MODE='1'");
    EXPECT_EQ (tuning.getConcertPitch(), 443.0);

    for (const auto* const text : { "0", "299.9", "600.1", "nan", "A", "-440", "1e9", "" })
    {
        restore (processor, "CONCERT_PITCH='" + juce::String (text) + "' MIDDLE_C='6'");
        EXPECT_EQ (tuning.getConcertPitch(), 443.0) << text;
        EXPECT_EQ (tuning.getMiddleC(), std::nullopt);
    }

    restore (processor, "CONCERT_PITCH='432' MIDDLE_C='3'");
    EXPECT_EQ (tuning.getConcertPitch(), 432.0);
    EXPECT_EQ (tuning.getMiddleC(), 3);
}

TEST_F (TuningSettingsTest, TheHostsMiddleCCanBeChosenAgainstTheUsersOwn)
{
    tuning.setMiddleC (4);
    restore (processor, "MIDDLE_C='host'");
    EXPECT_EQ (tuning.getMiddleC(), std::nullopt);
    restore (processor, "");
    EXPECT_EQ (tuning.getMiddleC(), 4);
}

TEST_F (TuningSettingsTest, APresetDoesNotHoldIt)
{
    tuning.setConcertPitch (442.0);
    EXPECT_FALSE (processor.getStateXml (false)->toString().contains ("442"));
}

TEST (ConcertPitchText, IsReadWithAndWithoutItsUnitAndWrittenShort)
{
    EXPECT_EQ (data::parseConcertPitch ("442"), 442.0);
    EXPECT_EQ (data::parseConcertPitch (" 441.5 Hz "), 441.5);
    EXPECT_EQ (data::parseConcertPitch ("300"), 300.0);
    EXPECT_EQ (data::parseConcertPitch ("601"), std::nullopt);
    EXPECT_EQ (data::parseConcertPitch ("440 cents"), std::nullopt);
    EXPECT_EQ (data::formatConcertPitch (440.0), "440");
    EXPECT_EQ (data::formatConcertPitch (442.5), "442.5");
    EXPECT_EQ (data::formatConcertPitch (441.23), "441.23");
}

} // namespace
} // namespace mk::orlo::test
