// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/PresetMenuActions.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
#if JUCE_LINUX
/** Where an installation puts the factory presets, below the home folder and the system's data folder. */
enum class Place
{
    forOneUser,
    forAll
};

class InstalledPresets : public testing::TestWithParam<Place>
{
protected:
    InstalledPresets()
    {
        getSourceFolder().getChildFile ("resources/presets").copyDirectoryTo (installed.getChildFile ("presets"));
    }

    const TemporaryHome home;
    const juce::File installed =
        (GetParam() == Place::forOneUser ? home.getFolder().getChildFile (".local/share") : home.getSystemDataFolder())
            .getChildFile ("Morlek/Orlo");
};

TEST_P (InstalledPresets, AreLoadedByTheRowOfTheMenu)
{
    AudioPluginAudioProcessor processor;
    PresetMenuActions actions (processor);
    auto& speed = *processor.getParameterState().getParameter (Params::id::speed);
    const auto initial = speed.getValue();
    speed.setValueNotifyingHost (0.77f);

    actions.perform (pluginCore::PresetMenu::init, actions.makeMenu());
    EXPECT_EQ (processor.getPresetsManager().getCurrentPresetFile(), installed.getChildFile ("presets/Init.mkpreset"));
    EXPECT_FLOAT_EQ (speed.getValue(), initial);
}

TEST_P (InstalledPresets, StayKnownToASessionThatUsesThem)
{
    juce::MemoryBlock session;

    {
        AudioPluginAudioProcessor processor;
        ASSERT_TRUE (
            processor.getPresetsManager().loadPresetFile (installed.getChildFile ("presets/Speech.mkpreset"), nullptr));
        processor.getStateInformation (session);
    }

    AudioPluginAudioProcessor processor;
    processor.setStateInformation (session.getData(), int (session.getSize()));
    EXPECT_EQ (processor.getPresetsManager().getCurrentPresetFile(),
               installed.getChildFile ("presets/Speech.mkpreset"));
}

INSTANTIATE_TEST_SUITE_P (Installations, InstalledPresets, testing::Values (Place::forOneUser, Place::forAll));
#endif
} // namespace
} // namespace mk::orlo::test
