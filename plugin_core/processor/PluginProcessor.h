// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "BypassDelay.h"
#include "ProcessorEditor.h"
#include "plugin_core/product/ProductInfo.h"

#include "plugin_core/presets/PresetsManager.h"
#include "plugin_core/settings/PluginGlobalSettings.h"
#include "plugin_core/state/SessionState.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>

namespace mk::pluginCore
{

/** The half of a plug-in that is the same in every product: what it answers the host, its parameters
    and their undo, its saved state, and the wrapping of the audio callback. */
class PluginProcessor : public juce::AudioProcessor,
                        public PresetState,
                        private juce::AudioProcessorValueTreeState::Listener
{
public:
    PluginProcessor (const BusesProperties& buses,
                     ProductInfo product,
                     juce::AudioProcessorValueTreeState::ParameterLayout layout,
                     PresetFolders presetFolders);
    ~PluginProcessor() override;

    //==============================================================================
    [[nodiscard]] const juce::String getName() const override { return productInfo.name; }
    void prepareToPlay (double rate, int maxBlockSize) override;
    void releaseResources() override {}
    void processBlock (juce::AudioBuffer<float>&, juce::MidiBuffer&) override;
    void processBlockBypassed (juce::AudioBuffer<float>&, juce::MidiBuffer&) override;
    using juce::AudioProcessor::processBlock;
    using juce::AudioProcessor::processBlockBypassed;
    [[nodiscard]] double getTailLengthSeconds() const override { return 0.0; }
    [[nodiscard]] bool acceptsMidi() const override { return false; }
    [[nodiscard]] bool producesMidi() const override { return false; }
    [[nodiscard]] bool isMidiEffect() const override { return false; }
    void reset() override {}
    [[nodiscard]] juce::AudioProcessorEditor* createEditor() override;
    [[nodiscard]] bool hasEditor() const override { return true; }
    [[nodiscard]] int getNumPrograms() override { return 1; }
    [[nodiscard]] int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    [[nodiscard]] const juce::String getProgramName (int) override { return {}; }
    void changeProgramName (int, const juce::String&) override {}
    void getStateInformation (juce::MemoryBlock&) override;
    void setStateInformation (const void* data, int size) override;
    [[nodiscard]] bool isBusesLayoutSupported (const BusesLayout&) const override;

    //==============================================================================
    /** [message thread] Fills a fresh instance from the user's defaults. Called once, after construction.
        From here on a moved parameter makes the current preset dirty. */
    virtual void applyInitialSettings();

    [[nodiscard]] virtual juce::String getReleaseNotesUrl() const = 0;
    [[nodiscard]] virtual juce::String getProductUrl() const = 0;

    /** [host or message thread] The product's part of prepareToPlay(). */
    virtual void prepareInternal (int blockSize, double rate) = 0;

    /** [audio thread] The state was replaced since the last block. */
    virtual void onResetRequested() { reset(); }

    /** [audio thread] The product's audio callback. */
    virtual void processInternal (juce::AudioBuffer<float>&, juce::MidiBuffer&) = 0;

    [[nodiscard]] virtual int getReleaseYear() const { return productInfo.releaseYear; }

    /** Wrapper and version, "VST3 - v1.2.1 (x64)". */
    [[nodiscard]] virtual juce::String getVersionText() const;

    /** [message thread] Makes the product's editor. Null if the product has none to show. */
    [[nodiscard]] virtual std::unique_ptr<ProcessorEditor> createEditorInternal() = 0;

    /** Any thread. The state as XML; without what belongs to a session alone if not forSession. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> getStateXml (bool forSession) override;

    /** Any thread. Takes a document of getStateXml() over. False, with nothing changed, if it is another
        product's. What the document lacks keeps or gets its default; unknown entries are ignored. Parameters
        and state answer with the new values at once; what the message thread listens to follows later if
        this is another thread. */
    bool setStateFromXml (const juce::XmlElement& xml, bool forSession) override;

    /** Any thread, wait-free as long as there is no preset listener. The state has moved away from the
        current preset. Does nothing while the flag is locked. */
    virtual void setDirty();

    //==============================================================================
    /** The root element of a file about the product's presets, with its company and version. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createPresetHeaderXml() const;

    /** Any thread, wait-free. While it is locked, nothing sets the dirty flag. */
    void setDirtyLocked (bool shouldBeLocked) noexcept
    {
        dirtyLocked.store (shouldBeLocked, std::memory_order_release);
    }

    /** Any thread, wait-free. Whether a host is giving the session back at this moment, on any thread. */
    [[nodiscard]] bool isLoadingState() const noexcept { return numRestoring.load (std::memory_order_acquire) > 0; }

    /** Any thread, wait-free. Whether a session or a preset has ever been given to this instance. */
    [[nodiscard]] bool isStateRestored() const noexcept { return stateRestored.load (std::memory_order_acquire); }

    /** Any thread. Makes the present state the one that the kept copies show. */
    void refreshStateCopies() override;

    //==============================================================================
    [[nodiscard]] const ProductInfo& getProductInfo() const noexcept { return productInfo; }
    [[nodiscard]] juce::AudioProcessorValueTreeState& getParameterState() noexcept { return parameterState; }
    [[nodiscard]] PresetsManager& getPresetsManager() noexcept { return presets; }
    [[nodiscard]] SessionState& getSessionState() noexcept { return state; }

    /** Any thread, wait-free. The rate in hertz that the host has asked for last; 0 before the first time. */
    [[nodiscard]] double getPreparedRate() const noexcept { return sampleRate.load (std::memory_order_relaxed); }

    /** [message thread] What a preset and the parameters' controls record into. */
    [[nodiscard]] juce::UndoManager& getUndoManager() noexcept override { return undoManager; }

    /** [message thread] Closes the step of the undo history that the latest moves of parameters belong to. */
    void flushParameterChanges() override { parameterState.copyState(); }

    /** [message thread] Nudges the hidden parameter, see createInternalParam(): moves it by a hundredth, and back
        to 0 at the end of its range. */
    void nudgeInternalParameter();

protected:
    /** [message thread] The per-user settings that all instances share. */
    [[nodiscard]] juce::ValueTree getGlobalSettings() const { return globalSettings.getSettings(); }

    /** [audio thread] What a bypassed block goes through. */
    void delayByLatency (juce::AudioBuffer<float>& buffer) noexcept
    {
        bypassDelay.process (buffer, getLatencySamples());
    }

    /** Hertz; written by prepareToPlay(), read by the audio and the message thread. */
    std::atomic<double> sampleRate { 0.0 };

private:
    void parameterChanged (const juce::String&, float) override;
    void loadDefaultPreset();
    void restoreSession (const juce::XmlElement& xml);

    const ProductInfo productInfo;
    const PluginGlobalSettings globalSettings;
    juce::UndoManager undoManager;
    juce::AudioProcessorValueTreeState parameterState;
    SessionState state;
    PresetsManager presets;

    BypassDelay bypassDelay;
    std::atomic<bool> resetRequested { false }; // set with the state, cleared by the audio thread

    // Written and read by any thread.
    std::atomic<bool> dirtyLocked { false }, stateRestored { false };
    std::atomic<int> numRestoring { 0 };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginProcessor)
};

} // namespace mk::pluginCore
