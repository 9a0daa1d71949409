// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{

/** Brings the values of several parameters, which any thread may set, to a widget on the message thread.
    A burst of changes costs one message and ends with the last value of each parameter. */
class AttachedParamsControlBase : public juce::AudioProcessorValueTreeState::Listener, public juce::AsyncUpdater
{
public:
    /** [message thread] The state must outlive the attachment. */
    explicit AttachedParamsControlBase (juce::AudioProcessorValueTreeState& state);

    /** [message thread] Calls setValue() no more. A derived class must call stopListening() first in its
        own destructor, since other threads may be calling parameterChanged() at that time. */
    ~AttachedParamsControlBase() override;

    /** Any thread. On the message thread the widget has the value when this returns. Waits for the lock while
        another thread stores a value or runs handleAsyncUpdate(). */
    void parameterChanged (const juce::String& id, float value) override;

    /** [message thread] Sends the last values of all parameters seen so far to the widget. */
    void handleAsyncUpdate() override;

    /** [message thread] Shows the value, which is not normalised, without notifying listeners of the widget.
        May be called with a value that the widget shows already. */
    virtual void setValue (const juce::String& id, float value) = 0;

    /** [message thread] The user starts or ends a drag of the widget. */
    virtual void beginParameterChange() {}
    virtual void endParameterChange() {}

protected:
    /** [message thread] Follows the parameter; an id that names no parameter is ignored. */
    void listenTo (const juce::String& id);
    void stopListening();

    juce::AudioProcessorValueTreeState& state;

private:
    juce::StringArray listenedIds;
    juce::CriticalSection lock;
    juce::HashMap<juce::String, float> lastValues; // guarded by the lock

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (AttachedParamsControlBase)
};

} // namespace mk::pluginCore
