// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/hosts/support/HostProcess.h"
#include "tests/hosts/support/ScratchFolder.h"
#include "tests/hosts/support/VirtualDisplay.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <future>

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] juce::MemoryBlock bytesOf (const juce::File& file)
{
    juce::MemoryBlock bytes;
    file.loadFileAsData (bytes);
    return bytes;
}

/** The plug-in's own document inside the host's container. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> openContainer (const juce::MemoryBlock& bytes)
{
    const auto container = juce::AudioProcessor::getXmlFromBinary (bytes.getData(), int (bytes.getSize()));
    juce::MemoryBlock component;

    if (container == nullptr
        || ! component.fromBase64Encoding (container->getChildElementAllSubText ("IComponent", {})))
        return nullptr;

    return juce::AudioProcessor::getXmlFromBinary (component.getData(), int (component.getSize()));
}

class HostState : public testing::Test
{
protected:
    void save (const juce::String& name, juce::StringArray arguments)
    {
        arguments.addArray ({ "--no-window", "--seconds", "0", "--state-out", scratch.getPath (name) });
        const auto result = runHost (arguments);
        ASSERT_EQ (result.exitCode, 0) << result.errors;
        ASSERT_GT (scratch.getFile (name).getSize(), 0);
    }

    /** The value of a parameter in a saved state. */
    [[nodiscard]] float getSaved (const juce::String& name, const char* parameterId)
    {
        const auto xml = openContainer (bytesOf (scratch.getFile (name)));

        if (xml == nullptr)
            return std::numeric_limits<float>::quiet_NaN();

        AudioPluginAudioProcessor processor;
        processor.setStateFromXml (*xml, true);
        return processor.getParameterState().getRawParameterValue (parameterId)->load();
    }

    const ScratchFolder scratch;
};

TEST_F (HostState, ComesBackTheSameFromAnotherProcess)
{
    save ("first",
          { "--set",
            "mode=Classic",
            "--set",
            "floor=-61",
            "--set",
            "ceiling=-12",
            "--set",
            "freeze=on",
            "--set",
            "fftSize=4096",
            "--set",
            "speed=25",
            "--set",
            "maxFreq=50",
            "--set",
            "colourMap=magma" });
    save ("second", { "--state-in", scratch.getPath ("first") });
    save ("untouched", {});

    const auto first = bytesOf (scratch.getFile ("first"));
    EXPECT_EQ (first, bytesOf (scratch.getFile ("second")));
    EXPECT_NE (first, bytesOf (scratch.getFile ("untouched")));

    EXPECT_EQ (getSaved ("second", Params::id::mode), 0.0f);
    EXPECT_NEAR (getSaved ("second", Params::id::floor), -61.0f, 1.0e-4f);
    EXPECT_NEAR (getSaved ("second", Params::id::ceiling), -12.0f, 1.0e-4f);
    EXPECT_EQ (getSaved ("second", Params::id::freeze), 1.0f);
    EXPECT_EQ (getSaved ("second", Params::id::fftSize), 4.0f);
    EXPECT_NEAR (getSaved ("second", Params::id::speed), 25.0f, 1.0e-4f);
    EXPECT_NEAR (getSaved ("second", Params::id::maxFreq), 50.0f, 1.0e-3f);
    EXPECT_EQ (getSaved ("second", Params::id::colourMap), 5.0f);
}

TEST_F (HostState, IsOverruledByTheSettingsGiven)
{
    save ("first", { "--set", "floor=-61", "--set", "speed=25" });
    save ("second", { "--set", "floor=-75", "--state-in", scratch.getPath ("first") });

    EXPECT_NEAR (getSaved ("second", Params::id::floor), -75.0f, 1.0e-4f);
    EXPECT_NEAR (getSaved ("second", Params::id::speed), 25.0f, 1.0e-4f);
}

TEST_F (HostState, CanComeFromAPresetThatTheSettingsGivenOverrule)
{
    const auto preset = getSourceFolder().getChildFile ("resources/presets/Mixing.mkpreset").getFullPathName();
    save ("preset", { "--preset", preset });
    EXPECT_EQ (getSaved ("preset", Params::id::fftSize), 4.0f);
    EXPECT_EQ (getSaved ("preset", Params::id::drawMode), 1.0f);
    EXPECT_EQ (getSaved ("preset", Params::id::colourMap), 5.0f);
    EXPECT_NEAR (getSaved ("preset", Params::id::floor), -96.0f, 1.0e-4f);
    EXPECT_NEAR (getSaved ("preset", Params::id::maxFreq), 91.0f, 1.0e-3f);

    save ("changed", { "--set", "floor=-75", "--preset", preset });
    EXPECT_NEAR (getSaved ("changed", Params::id::floor), -75.0f, 1.0e-4f);
    EXPECT_NEAR (getSaved ("changed", Params::id::maxFreq), 91.0f, 1.0e-3f);
}

TEST_F (HostState, OfAFreshInstanceComesFromTheUsersDefaults)
{
    const TemporaryHome home;

    {
        const AudioPluginAudioProcessor writer;
        auto preset = writer.createPresetHeaderXml();
        auto* const parameter = preset->createNewChildElement ("PARAMS")->createNewChildElement ("PARAM");
        parameter->setAttribute ("id", Params::id::floor);
        parameter->setAttribute ("value", -61);
        const auto folder = AudioPluginAudioProcessor::getDefaultPresetFolders().userFolder;
        ASSERT_TRUE (preset->writeTo (juce::File (folder).getChildFile ("mine.mkpreset")));

        auto settings = pluginCore::PluginGlobalSettings().getSettings();
        settings.setProperty (pluginCore::SettingsIds::preferedMap, 6, nullptr);
        settings.setProperty (
            pluginCore::SettingsIds::defaultPreset, "<defaultPreset root='USER' path='mine.mkpreset'/>", nullptr);
    }

    save ("fresh", {});
    EXPECT_NEAR (getSaved ("fresh", Params::id::floor), -61.0f, 1.0e-4f);
    EXPECT_EQ (getSaved ("fresh", Params::id::colourMap), 5.0f);
    const auto xml = openContainer (bytesOf (scratch.getFile ("fresh")));
    ASSERT_NE (xml, nullptr);
    ASSERT_NE (xml->getChildByName ("lastPreset"), nullptr);
    EXPECT_EQ (xml->getChildByName ("lastPreset")->getStringAttribute ("path"), "mine.mkpreset");

    // The session overrules both.
    save ("first", { "--set", "floor=-75", "--set", "colourMap=gray" });
    save ("second", { "--state-in", scratch.getPath ("first") });
    EXPECT_NEAR (getSaved ("second", Params::id::floor), -75.0f, 1.0e-4f);
    EXPECT_EQ (getSaved ("second", Params::id::colourMap), 0.0f);
}

TEST_F (HostState, KeepsTheSizeOfTheWindow)
{
    const VirtualDisplay display;
    const auto size = [&] (const juce::String& name)
    {
        const auto xml = openContainer (bytesOf (scratch.getFile (name)));
        return xml != nullptr ? juce::Point { xml->getIntAttribute ("pluginEditorWidth"),
                                              xml->getIntAttribute ("pluginEditorHeight") }
                              : juce::Point<int>();
    };

    ASSERT_EQ (runHostOn (display.getName(),
                          { "--seconds", "0.5", "--size", "640x352", "--state-out", scratch.getPath ("first") })
                   .exitCode,
               0);
    EXPECT_EQ (size ("first"), (juce::Point { 640, 352 }));

    // The next window opens with it.
    ASSERT_EQ (
        runHostOn (
            display.getName(),
            { "--seconds", "0.5", "--state-in", scratch.getPath ("first"), "--state-out", scratch.getPath ("second") })
            .exitCode,
        0);
    EXPECT_EQ (bytesOf (scratch.getFile ("second")), bytesOf (scratch.getFile ("first")));
}

TEST_F (HostState, IsWrittenWhenTheWindowIsClosed)
{
    VirtualDisplay display;
    auto running = std::async (
        std::launch::async,
        [&] {
            return runHostOn (display.getName(), { "--seconds", "50", "--state-out", scratch.getPath ("state") });
        });

    const auto start = juce::Time::getMillisecondCounter();
    const auto secondsPassed = [start] { return int (juce::Time::getMillisecondCounter() - start) / 1000; };

    // A window that is still opening ignores the request, so it is repeated until the window closes.
    while (running.wait_for (std::chrono::milliseconds (100)) != std::future_status::ready && secondsPassed() < 40)
        display.closeWindow ("Orlo");

    EXPECT_LT (secondsPassed(), 40);
    const auto result = running.get();
    EXPECT_EQ (result.exitCode, 0);
    EXPECT_EQ (result.errors, "");
    EXPECT_GT (scratch.getFile ("state").getSize(), 0);
}

TEST_F (HostState, IsWrittenWhenTheHostIsToldToEnd)
{
    for (const auto* const signal : { "INT", "TERM" })
    {
        const auto file = scratch.getFile (signal);
        juce::StringArray command { "timeout", "--preserve-status", "--signal", signal, "2" };
        command.addArray (getHostCommandLine ({ "--no-window", "--state-out", file.getFullPathName() }));

        const auto result = runProcess (command);
        EXPECT_EQ (result.exitCode, 0) << signal;
        EXPECT_EQ (result.errors, "") << signal;
        EXPECT_GT (file.getSize(), 0) << signal;
    }
}
} // namespace
} // namespace mk::orlo::test
