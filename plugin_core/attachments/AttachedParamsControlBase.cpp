// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AttachedParamsControlBase.h"

namespace mk::pluginCore
{

AttachedParamsControlBase::AttachedParamsControlBase (juce::AudioProcessorValueTreeState& stateToUse)
    : state (stateToUse)
{
}

AttachedParamsControlBase::~AttachedParamsControlBase()
{
    stopListening();
    cancelPendingUpdate();
}

void AttachedParamsControlBase::listenTo (const juce::String& id)
{
    if (state.getParameter (id) != nullptr && listenedIds.addIfNotAlreadyThere (id))
        state.addParameterListener (id, this);
}

void AttachedParamsControlBase::stopListening()
{
    for (const auto& id : listenedIds)
        state.removeParameterListener (id, this);

    listenedIds.clear();
}

void AttachedParamsControlBase::parameterChanged (const juce::String& id, float value)
{
    {
        const juce::ScopedLock scopedLock (lock);
        lastValues.set (id, value);
    }

    if (! juce::MessageManager::existsAndIsCurrentThread())
    {
        triggerAsyncUpdate();
    }
    else if (isUpdatePending())
    {
        // The pending message may carry another parameter's value, so it is delivered at once and not dropped.
        cancelPendingUpdate();
        handleAsyncUpdate();
    }
    else
    {
        setValue (id, value);
    }
}

void AttachedParamsControlBase::handleAsyncUpdate()
{
    const juce::ScopedLock scopedLock (lock);

    for (juce::HashMap<juce::String, float>::Iterator i (lastValues); i.next();)
        setValue (i.getKey(), i.getValue());
}

} // namespace mk::pluginCore
