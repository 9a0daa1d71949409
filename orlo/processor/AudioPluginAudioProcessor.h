// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LocalisedStringsManager.h"
#include "SourceMixer.h"

#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/FrameClock.h"
#include "orlo/analysis/SoundHistory.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"
#include "orlo/state/PointsChoice.h"
#include "orlo/state/UIView.h"
#include "plugin_core/processor/PluginProcessor.h"

#include <memory>

namespace mk::orlo
{

/** The product's processor: passes the audio through untouched and feeds a mix of it to the analysis. */
class AudioPluginAudioProcessor : public pluginCore::PluginProcessor
{
public:
    /** Makes the window of a processor. [message thread] */
    using EditorFactory = std::unique_ptr<pluginCore::ProcessorEditor> (*) (AudioPluginAudioProcessor&);

    /** [message thread] Without a factory there is no window. */
    explicit AudioPluginAudioProcessor (EditorFactory editorFactory = nullptr,
                                        pluginCore::PresetFolders presetFolders = getDefaultPresetFolders());
    ~AudioPluginAudioProcessor() override;

    //==============================================================================
    void applyInitialSettings() override;
    [[nodiscard]] bool hasEditor() const override { return makeEditor != nullptr; }
    [[nodiscard]] juce::String getReleaseNotesUrl() const override;
    [[nodiscard]] juce::String getProductUrl() const override;
    void prepareInternal (int blockSize, double rate) override;
    void processInternal (juce::AudioBuffer<float>&, juce::MidiBuffer&) override;
    [[nodiscard]] std::unique_ptr<pluginCore::ProcessorEditor> createEditorInternal() override;

    //==============================================================================
    /** [message thread] While suspended the audio thread does no work for the analysis. Resuming discards the
        samples and frames that still wait, so that the picture never starts with old audio. */
    void setAnalysisSuspended (bool shouldBeSuspended) noexcept;

    /** [message thread] Passes the parameters for levels, points, range, scale and drawing on to worker and builder. Hosts
        automate from within the audio callback, where no message may be posted, so the view calls this at every
        tick instead. Also follows the source that the view's state has. */
    void updatePictureSettings();

    /** [message thread] A window keeps the newest sound while it is open, for as long as the user's settings say, 60
        seconds by default; 0 there turns it off. When the window no longer needs it, the memory is given back, unless the
        display is frozen: then the sound is still there when the next window opens. */
    void setSoundKept (bool shouldBeKept);

    /** [message thread] Whether the display stands still, by the parameter or because the host has stopped. */
    [[nodiscard]] bool isFrozen() const noexcept;

    /** Any thread. Whether the host has stopped and Auto Freeze is on. Written by the audio thread. */
    [[nodiscard]] bool isAutoPaused() const noexcept { return autoPaused.load (std::memory_order_relaxed); }

    /** The folders of the product's presets on this system. */
    [[nodiscard]] static pluginCore::PresetFolders getDefaultPresetFolders();

    [[nodiscard]] FFTProcessor& getFftProcessor() noexcept { return fftProcessor; }
    [[nodiscard]] SpectrogramImageBuilder& getImageBuilder() noexcept { return imageBuilder; }
    [[nodiscard]] FrameClock& getFrameClock() noexcept { return frameClock; }
    [[nodiscard]] const SoundHistory& getSoundHistory() const noexcept { return soundHistory; }
    [[nodiscard]] data::UIView& getUIView() noexcept { return uiView; }

    /** [message thread] */
    [[nodiscard]] PointsKept getPointsKept() const noexcept { return pointsChoice.get(); }

    /** [message thread] One step of undo. Presets and the host learn that the state has changed. */
    void setPointsKept (PointsKept chosen);

private:
    void applyPreferredColourMap();
    void updateWindowLength() noexcept;
    void updateTransport() noexcept;

    /** [audio thread] Updates isAutoPaused(). Returns whether the display is frozen. */
    [[nodiscard]] bool updatePause() noexcept;

    /** [audio thread] Passes what is to be analysed of a block on to the worker. */
    void pushSource (const juce::AudioBuffer<float>& buffer) noexcept;

    /** [message thread] Requests the source that the view has. */
    void updateSource();

    const EditorFactory makeEditor;
    LocalisedStringsManager localisedStrings;
    FFTProcessor fftProcessor;
    SoundHistory soundHistory;
    FrameClock frameClock;
    SpectrogramImageBuilder imageBuilder { fftProcessor, frameClock };

    std::atomic<bool> analysisSuspended { true }; // written by the message thread, read by the audio thread

    std::atomic<Source> requestedSource { Source::mean }; // written by the message thread, read by the audio thread

    // Polled by the audio thread once per block.
    std::atomic<float>* const fftSizeParam;
    std::atomic<float>* const freezeParam;
    std::atomic<float>* const autoFreezeParam;
    std::atomic<float>* const modeParam;

    // Polled by the message thread once per tick.
    std::atomic<float>* const floorParam;
    std::atomic<float>* const ceilingParam;
    std::atomic<float>* const drawModeParam;
    std::atomic<float>* const freqScaleParam;
    std::atomic<float>* const minFreqParam;
    std::atomic<float>* const maxFreqParam;

    // Used by the audio thread only.
    SourceMixer sourceMixer;
    Source analysedSource = Source::mean;
    bool transportPlaying = false;
    HostNote hostNote; // about the block

    data::UIView uiView { getSessionState().getSettings().getTree() };
    data::PointsChoice pointsChoice { getSessionState().getData().getTree() };

    std::atomic<bool> autoPaused { false };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AudioPluginAudioProcessor)
};

} // namespace mk::orlo
