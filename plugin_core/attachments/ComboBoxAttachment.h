// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterAttachment.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>

namespace mk::pluginCore
{

/** Connects a box, whose entries have the ids 1, 2, 3 ..., to a parameter with the values 0, 1, 2 ... The
    parameter may have more values than the box has entries. Each choice of the user is one complete gesture.
    Parameter and box must outlive the attachment. [message thread] */
class ComboBoxAttachment : public juce::ComboBox::Listener
{
public:
    /** What the box shows for a value above that of its last entry. */
    enum class ValuesBeyond
    {
        showLastEntry,
        showFirstEntry
    };

    /** Shows the current value. With an undo manager each choice opens a transaction; afterGesture is called
        at the end of each. */
    ComboBoxAttachment (juce::RangedAudioParameter& parameter,
                        juce::ComboBox& box,
                        juce::UndoManager* undoManager,
                        std::function<void()> afterGesture = {},
                        ValuesBeyond valuesBeyond = ValuesBeyond::showLastEntry);
    ~ComboBoxAttachment() override;

    /** Selects the entry of the value, which is not normalised: the first entry if it is below 0, the one that
        valuesBeyond says if it is too high. The box notifies its listeners synchronously. */
    void parameterChangedCallback (float value);

    void comboBoxChanged (juce::ComboBox*) override;

private:
    juce::ComboBox& box;
    juce::RangedAudioParameter& storedParameter;
    juce::UndoManager* const undoManager;
    const std::function<void()> afterGesture;
    const ValuesBeyond valuesBeyond;
    ParameterAttachment attachment;
    bool ignoreCallbacks = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ComboBoxAttachment)
};

} // namespace mk::pluginCore
