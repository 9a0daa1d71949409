// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ParameterAttachment.h"

#include <tuple>
#include <utility>

namespace mk::pluginCore
{

ParameterAttachment::ParameterAttachment (juce::RangedAudioParameter& parameterToAttach,
                                          std::function<void (float)> callbackToCall,
                                          juce::UndoManager* undoManagerToUse)
    : parameter (parameterToAttach), callback (std::move (callbackToCall)), undoManager (undoManagerToUse)
{
    parameter.addListener (this);
    poller->add (*this);
}

ParameterAttachment::~ParameterAttachment()
{
    poller->remove (*this);
    parameter.removeListener (this);
}

void ParameterAttachment::sendInitialUpdate()
{
    lastValue.store (parameter.getValue(), std::memory_order_relaxed);
    deliver();
}

//==============================================================================
void ParameterAttachment::setValueAsCompleteGesture (float newValue)
{
    if (hasValue (parameter.convertTo0to1 (newValue)))
        return;

    beginGesture();
    setValueAsPartOfGesture (newValue);
    endGesture();
}

void ParameterAttachment::beginGesture()
{
    if (undoManager != nullptr)
        undoManager->beginNewTransaction();

    parameter.beginChangeGesture();
}

void ParameterAttachment::setValueAsPartOfGesture (float newValue)
{
    if (const auto normalised = parameter.convertTo0to1 (newValue); ! hasValue (normalised))
        parameter.setValueNotifyingHost (normalised);
}

void ParameterAttachment::endGesture() { parameter.endChangeGesture(); }

bool ParameterAttachment::hasValue (float normalisedValue) const
{
    return juce::approximatelyEqual (parameter.getValue(), normalisedValue);
}

//==============================================================================
void ParameterAttachment::parameterValueChanged (int, float newValue)
{
    lastValue.store (newValue, std::memory_order_relaxed);

    if (mayTouchComponents())
    {
        deliver();
        return;
    }

    isPending.store (true, std::memory_order_release);
    poller->noteValue();
}

void ParameterAttachment::deliverPending()
{
    if (isPending.load (std::memory_order_relaxed))
        deliver();
}

void ParameterAttachment::deliver()
{
    // The flag is cleared before the value is read, so a value stored in between may be delivered twice but not lost.
    std::ignore = isPending.exchange (false, std::memory_order_acq_rel);

    if (callback != nullptr)
        callback (parameter.convertFrom0to1 (lastValue.load (std::memory_order_relaxed)));
}

} // namespace mk::pluginCore
