// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AttachmentPoller.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>
#include <functional>

namespace mk::pluginCore
{

/** Brings a parameter's values to a callback on the message thread, and writes the user's values to the parameter.

    Replaces juce::ParameterAttachment because hosts may automate from within the audio callback: a value set
    on another thread is stored and flagged there, without a message, a lock or an allocation, and delivered by
    the AttachmentPoller. Of several values only the last one is delivered. A value set on the message thread is
    delivered before the setter returns.

    The parameter must outlive the attachment. [message thread, except parameterValueChanged()] */
class ParameterAttachment final : private juce::AudioProcessorParameter::Listener, private AttachmentPoller::Client
{
public:
    /** The callback gets values in the parameter's own range; the first call is at the first change. With an
        undo manager each gesture opens a transaction. */
    ParameterAttachment (juce::RangedAudioParameter& parameter,
                         std::function<void (float)> callback,
                         juce::UndoManager* undoManager = nullptr);
    ~ParameterAttachment() override;

    /** Calls the callback with the current value. */
    void sendInitialUpdate();

    /** Sets a value in the parameter's own range as one gesture. Does nothing if the value is the current one. */
    void setValueAsCompleteGesture (float newValue);

    void beginGesture();
    void setValueAsPartOfGesture (float newValue);
    void endGesture();

private:
    void parameterValueChanged (int parameterIndex, float newValue) override;
    void parameterGestureChanged (int, bool) override {}
    void deliverPending() override;
    void deliver();
    [[nodiscard]] bool hasValue (float normalisedValue) const;

    juce::RangedAudioParameter& parameter;
    const std::function<void (float)> callback;
    juce::UndoManager* const undoManager;

    // Written by the thread that sets the parameter, read by the message thread. The value is stored before the flag.
    std::atomic<float> lastValue { 0.0f }; // normalised
    std::atomic<bool> isPending { false };

    static_assert (std::atomic<float>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

    const juce::SharedResourcePointer<AttachmentPoller> poller;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ParameterAttachment)
};

} // namespace mk::pluginCore
