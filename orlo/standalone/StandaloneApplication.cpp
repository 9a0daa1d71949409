// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LoopedAudio.h"
#include "StandaloneOptions.h"
#include "StandaloneProcessor.h"

#include "orlo/processor/Product.h"
#include "plugin_core/files/ConfigurationFolder.h"

#include <OrloIconData.h>
#include <iostream>
#include <juce_audio_utils/juce_audio_utils.h>

// JUCE's window needs these and those above before it.
#include <juce_audio_plugin_client/detail/juce_CheckSettingMacros.h>
#include <juce_audio_plugin_client/detail/juce_PluginUtilities.h>

#include <juce_audio_plugin_client/Standalone/juce_StandaloneFilterWindow.h>

namespace mk::orlo
{
namespace
{
constexpr auto muteInputKey = "shouldMuteInput"; // of JUCE's wrapper

[[nodiscard]] juce::PropertiesFile::Options makeSettingsOptions (const pluginCore::ProductInfo& product)
{
    juce::PropertiesFile::Options options;
    options.applicationName = "Standalone";
    options.filenameSuffix = ".settings";
    options.osxLibrarySubFolder = "Application Support";
    options.folderName = product.company + "/" + product.name;

#if JUCE_LINUX
    options.folderName = pluginCore::getConfigurationFolder().getChildFile (options.folderName).getFullPathName();
#endif

    return options;
}

/** The standalone program: the plug-in in a window of its own. */
class StandaloneApplication final : public juce::JUCEApplication
{
public:
    StandaloneApplication() { settings.setStorageParameters (makeSettingsOptions (product)); }

    const juce::String getApplicationName() override { return product.name; }
    const juce::String getApplicationVersion() override { return product.version; }
    bool moreThanOneInstanceAllowed() override { return true; }

    void initialise (const juce::String&) override
    {
        const auto options = parseStandaloneOptions (getCommandLineParameterArray());

        if (options.error.isNotEmpty())
            fail (options.error);
        else if (options.showHelp)
            finish (getStandaloneHelp());
        else if (options.showVersion)
            finish (product.name + " " + product.version + "\n");
        else
            start (options);
    }

    void shutdown() override
    {
        window = nullptr;
        StandaloneProcessor::setAudio (nullptr);
        audio = nullptr;
        settings.saveIfNeeded();
    }

    void systemRequestedQuit() override
    {
        if (window != nullptr)
            window->pluginHolder->savePluginState();

        // A dialog that is open ends first.
        if (juce::ModalComponentManager::getInstance()->cancelAllModalComponents())
            juce::MessageManager::callAsync ([this] { systemRequestedQuit(); });
        else
            quit();
    }

private:
    void start (const StandaloneOptions& options)
    {
        if (juce::Desktop::getInstance().getDisplays().displays.isEmpty())
        {
            fail ("there is no display");
            return;
        }

        if (options.audio)
        {
            juce::String error;
            audio = LoopedAudio::read (*options.audio, error);

            if (audio == nullptr)
            {
                fail (error);
                return;
            }
        }

        StandaloneProcessor::setAudio (audio.get());

        // The input is not played back, so nothing can feed back and there is no reason to mute it.
        auto* const userSettings = settings.getUserSettings();
        userSettings->setValue (muteInputKey, false);

        auto holder = std::make_unique<juce::StandalonePluginHolder> (userSettings, false);

        if (audio != nullptr)
            useRateOf (*audio, holder->deviceManager);

        const auto background =
            juce::LookAndFeel::getDefaultLookAndFeel().findColour (juce::ResizableWindow::backgroundColourId);
        window =
            std::make_unique<juce::StandaloneFilterWindow> (getWindowTitle (options), background, std::move (holder));
        window->setVisible (true);

        if (auto* const peer = window->getPeer())
            peer->setIcon (juce::ImageCache::getFromMemory (OrloIconData::orlo128_png, OrloIconData::orlo128_pngSize));
    }

    [[nodiscard]] juce::String getWindowTitle (const StandaloneOptions& options) const
    {
        return options.audio ? product.name + ": " + options.audio->getFileName() : product.name;
    }

    /** Sets the sound card to the audio's own rate, if it can do that, so that nothing is resampled. The user's choice
        of a rate stays stored. */
    static void useRateOf (const LoopedAudio& audioToPlay, juce::AudioDeviceManager& devices)
    {
        auto setup = devices.getAudioDeviceSetup();
        setup.sampleRate = audioToPlay.getSampleRate();

        if (auto* const device = devices.getCurrentAudioDevice();
            device != nullptr && device->getAvailableSampleRates().contains (setup.sampleRate))
            devices.setAudioDeviceSetup (setup, false);
    }

    static void finish (const juce::String& text)
    {
        std::cout << text << std::flush;
        quit();
    }

    void fail (const juce::String& error)
    {
        std::cerr << "orlo: " << error << std::endl;
        setApplicationReturnValue (1);
        quit();
    }

    const pluginCore::ProductInfo product = makeProductInfo();
    juce::ApplicationProperties settings;
    std::unique_ptr<LoopedAudio> audio;
    std::unique_ptr<juce::StandaloneFilterWindow> window;
};
} // namespace
} // namespace mk::orlo

START_JUCE_APPLICATION (mk::orlo::StandaloneApplication)
