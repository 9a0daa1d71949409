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

/** The part of a plug-in that is the same in every product: its answers to the host, its parameters
    and their undo, its saved state, and the wrapper around the audio callback. */
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
    /** [message thread] Initialises a new instance from the user's defaults. Called once, after construction.
        After this call a parameter change makes the current preset dirty. */
    virtual void applyInitialSettings();

    [[nodiscard]] virtual juce::String getReleaseNotesUrl() const = 0;
    [[nodiscard]] virtual juce::String getProductUrl() const = 0;

    /** [host or message thread] The product's part of prepareToPlay(). */
    virtual void prepareInternal (int blockSize, double rate) = 0;

    /** [audio thread] Called when the state was replaced since the last block. */
    virtual void onResetRequested() { reset(); }

    /** [audio thread] The product's audio callback. */
    virtual void processInternal (juce::AudioBuffer<float>&, juce::MidiBuffer&) = 0;

    [[nodiscard]] virtual int getReleaseYear() const { return productInfo.releaseYear; }

    /** The plug-in format and version, such as "VST3 - v1.2.1 (x64)". */
    [[nodiscard]] virtual juce::String getVersionText() const;

    /** [message thread] Creates the product's editor. Null if the product has none. */
    [[nodiscard]] virtual std::unique_ptr<ProcessorEditor> createEditorInternal() = 0;

    /** Any thread. The state as XML. If forSession is false, it omits what only sessions store. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> getStateXml (bool forSession) override;

    /** Any thread. Applies a document from getStateXml(). Returns false and changes nothing if it is from
        another product. Missing parts keep their value or get their default; unknown entries are ignored. The
        parameters and the state have the new values when the call returns; on other threads than the message
        thread, the trees that components listen to are updated later. */
    bool setStateFromXml (const juce::XmlElement& xml, bool forSession) override;

    /** Any thread, wait-free as long as there is no preset listener. Marks the state as different from the
        current preset. Does nothing while the flag is locked. */
    virtual void setDirty();

    //==============================================================================
    /** The root element of a file about the product's presets, with the product's company and version. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement> createPresetHeaderXml() const;

    /** Any thread, wait-free. While it is locked, nothing sets the dirty flag. */
    void setDirtyLocked (bool shouldBeLocked) noexcept
    {
        dirtyLocked.store (shouldBeLocked, std::memory_order_release);
    }

    /** Any thread, wait-free. Whether the host is restoring a session at this moment, on any thread. */
    [[nodiscard]] bool isLoadingState() const noexcept { return numRestoring.load (std::memory_order_acquire) > 0; }

    /** Any thread, wait-free. Whether this instance has ever restored a session or a preset. */
    [[nodiscard]] bool isStateRestored() const noexcept { return stateRestored.load (std::memory_order_acquire); }

    /** Any thread. Replaces the stored copies of the state by the present state. */
    void refreshStateCopies() override;

    //==============================================================================
    [[nodiscard]] const ProductInfo& getProductInfo() const noexcept { return productInfo; }
    [[nodiscard]] juce::AudioProcessorValueTreeState& getParameterState() noexcept { return parameterState; }
    [[nodiscard]] PresetsManager& getPresetsManager() noexcept { return presets; }
    [[nodiscard]] SessionState& getSessionState() noexcept { return state; }

    /** Any thread, wait-free. The sample rate in hertz of the last prepareToPlay(); 0 before the first call. */
    [[nodiscard]] double getPreparedRate() const noexcept { return sampleRate.load (std::memory_order_relaxed); }

    /** [message thread] The undo manager that preset loads and the parameters' controls record into. */
    [[nodiscard]] juce::UndoManager& getUndoManager() noexcept override { return undoManager; }

    /** [message thread] Ends the undo step that contains the latest parameter changes. */
    void flushParameterChanges() override { parameterState.copyState(); }

    /** [message thread] Changes the hidden parameter, see createInternalParam(): raises it by 0.01, and resets it
        to 0 at the end of its range. */
    void nudgeInternalParameter();

protected:
    /** [message thread] The per-user settings that all instances share. */
    [[nodiscard]] juce::ValueTree getGlobalSettings() const { return globalSettings.getSettings(); }

    /** [audio thread] Delays a bypassed block by the reported latency. */
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
