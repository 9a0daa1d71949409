// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterAttachment.h"

namespace mk::pluginCore
{

/** Connects a slider with one value to a parameter and gives the slider its range, texts and default. Each drag
    is one gesture. Parameter and slider must outlive the attachment. [message thread] */
class SliderAttachment final : private juce::Slider::Listener
{
public:
    /** Shows the current value. With an undo manager each drag opens a transaction. */
    SliderAttachment (juce::RangedAudioParameter& parameter, juce::Slider& slider, juce::UndoManager* undoManager);
    ~SliderAttachment() override;

private:
    void showValue (float value);
    void sliderValueChanged (juce::Slider*) override;
    void sliderDragStarted (juce::Slider*) override { attachment.beginGesture(); }
    void sliderDragEnded (juce::Slider*) override { attachment.endGesture(); }

    juce::Slider& slider;
    ParameterAttachment attachment;
    bool ignoreCallbacks = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SliderAttachment)
};

} // namespace mk::pluginCore
