// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterAttachment.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>

namespace mk::pluginCore
{

/** Ties a box, whose entries have the ids 1, 2, 3 ..., to a parameter with the values 0, 1, 2 ... The
    parameter may have more values than the box has entries. Each choice of the user is one complete gesture.
    Parameter and box must outlive the attachment. [message thread] */
class ComboBoxAttachment : public juce::ComboBox::Listener
{
public:
    /** Shows the present value. With an undo manager each choice opens a transaction; afterGesture is called
        at the end of each. */
    ComboBoxAttachment (juce::RangedAudioParameter& parameter,
                        juce::ComboBox& box,
                        juce::UndoManager* undoManager,
                        std::function<void()> afterGesture = {});
    ~ComboBoxAttachment() override;

    /** Selects the entry of the value, which is not normalised: the first one if it is below 0, the last one
        if it is too high. The box tells its listeners at once. */
    void parameterChangedCallback (float value);

    void comboBoxChanged (juce::ComboBox*) override;

private:
    juce::ComboBox& box;
    juce::RangedAudioParameter& storedParameter;
    juce::UndoManager* const undoManager;
    const std::function<void()> afterGesture;
    ParameterAttachment attachment;
    bool ignoreCallbacks = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ComboBoxAttachment)
};

} // namespace mk::pluginCore
