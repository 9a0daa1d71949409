// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterAttachment.h"

namespace mk::pluginCore
{

/** Connects a toggle button to a switch parameter. Each click is one complete gesture. The button's listeners
    are also called when the parameter changes. Both must outlive the attachment. [message thread] */
class ButtonAttachment final : private juce::Button::Listener
{
public:
    /** Shows the current value. With an undo manager each click opens a transaction. */
    ButtonAttachment (juce::RangedAudioParameter& parameter, juce::Button& button, juce::UndoManager* undoManager);
    ~ButtonAttachment() override;

private:
    void showValue (float value);
    void buttonClicked (juce::Button*) override;

    juce::Button& button;
    ParameterAttachment attachment;
    bool ignoreCallbacks = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ButtonAttachment)
};

} // namespace mk::pluginCore
