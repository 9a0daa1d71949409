// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AudioPluginAudioProcessor.h"
#include "display/SpectrogramComponent.h"

namespace mk::orlo
{

/** The product's window: the spectrogram over the whole of it. [message thread] */
class AudioPluginAudioProcessorEditor final : public juce::AudioProcessorEditor
{
public:
    explicit AudioPluginAudioProcessorEditor (AudioPluginAudioProcessor& processor);
    ~AudioPluginAudioProcessorEditor() override;

    void resized() override;

    [[nodiscard]] SpectrogramComponent& getSpectrogram() noexcept { return spectrogram; }

private:
    AudioPluginAudioProcessor& orloProcessor;
    SpectrogramComponent spectrogram;
    juce::ParameterAttachment colourMapAttachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AudioPluginAudioProcessorEditor)
};

} // namespace mk::orlo
