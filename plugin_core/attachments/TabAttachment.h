// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterAttachment.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <vector>

namespace mk::pluginCore
{

/** Connects a group of radio buttons to a parameter with the values 0, 1, 2 ..., one for each button. Each click
    is one complete gesture. The parameter must outlive the attachment, the buttons need not. [message thread] */
class TabAttachment : public juce::Button::Listener
{
public:
    /** Takes the buttons in the order of their values and turns on that of the current value. With an undo
        manager each click opens a transaction; afterGesture is called at the end of each. */
    TabAttachment (juce::RangedAudioParameter& parameter,
                   const juce::Array<juce::Button*>& buttons,
                   juce::UndoManager* undoManager,
                   std::function<void()> afterGesture = {});
    ~TabAttachment() override;

    /** Turns on the button of the value, which is not normalised. A value without a button changes nothing. */
    void parameterChangedCallback (float value);

    void buttonClicked (juce::Button* button) override;

private:
    std::vector<juce::Component::SafePointer<juce::Button>> buttons;
    juce::RangedAudioParameter& parameter;
    const std::function<void()> afterGesture;
    ParameterAttachment attachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TabAttachment)
};

} // namespace mk::pluginCore
