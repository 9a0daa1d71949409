// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AudioPluginAudioProcessorEditor.h"

#include "Params.h"

namespace mk::orlo
{
namespace
{
// 1050 by 578 at the width that a window opens with.
constexpr auto aspectRatio = 1.818f;
constexpr int smallestSide = 100;
constexpr int largestSide = 10000;
} // namespace

AudioPluginAudioProcessorEditor::AudioPluginAudioProcessorEditor (AudioPluginAudioProcessor& processorToEdit)
    : juce::AudioProcessorEditor (processorToEdit),
      orloProcessor (processorToEdit),
      spectrogram (processorToEdit, processorToEdit.getFftProcessor(), processorToEdit.getImageBuilder()),
      colourMapAttachment (*processorToEdit.getParameterState().getParameter (Params::id::colourMap),
                           [this] (float value)
                           { orloProcessor.getImageBuilder().setColourMap (juce::roundToInt (value)); })
{
    colourMapAttachment.sendInitialUpdate();
    addAndMakeVisible (spectrogram);
    setOpaque (true);
    setResizable (true, false);
    setResizeLimits (smallestSide, smallestSide, largestSide, largestSide);
    getConstrainer()->setFixedAspectRatio (double (aspectRatio));
}

AudioPluginAudioProcessorEditor::~AudioPluginAudioProcessorEditor() { orloProcessor.editorBeingDeleted (this); }

void AudioPluginAudioProcessorEditor::resized()
{
    auto& state = orloProcessor.getSessionState();
    state.pluginEditorWidth.store (getWidth(), std::memory_order_relaxed);
    state.pluginEditorHeight.store (getHeight(), std::memory_order_relaxed);
    spectrogram.setBounds (getLocalBounds());
}

} // namespace mk::orlo
