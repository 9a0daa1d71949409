// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ComboBoxAttachment.h"

#include <algorithm>
#include <utility>

namespace mk::pluginCore
{

ComboBoxAttachment::ComboBoxAttachment (juce::RangedAudioParameter& parameter,
                                        juce::ComboBox& boxToAttach,
                                        juce::UndoManager* undoManagerToUse,
                                        std::function<void()> callbackAfterGesture,
                                        ValuesBeyond valuesBeyondEntries)
    : box (boxToAttach),
      storedParameter (parameter),
      undoManager (undoManagerToUse),
      afterGesture (std::move (callbackAfterGesture)),
      valuesBeyond (valuesBeyondEntries),
      attachment (parameter, [this] (float value) { parameterChangedCallback (value); })
{
    attachment.sendInitialUpdate();
    box.addListener (this);
}

ComboBoxAttachment::~ComboBoxAttachment() { box.removeListener (this); }

void ComboBoxAttachment::parameterChangedCallback (float value)
{
    const auto index = juce::roundToInt (value);
    const auto numEntries = box.getNumItems();
    const auto highestId = valuesBeyond == ValuesBeyond::showFirstEntry && index >= numEntries ? 1 : numEntries;
    const auto itemId = index < 0 ? 1 : std::min (index + 1, highestId);

    if (itemId == box.getSelectedId())
        return;

    const juce::ScopedValueSetter<bool> setter (ignoreCallbacks, true);
    box.setSelectedId (itemId, juce::sendNotificationSync);
}

void ComboBoxAttachment::comboBoxChanged (juce::ComboBox*)
{
    if (ignoreCallbacks || box.getSelectedId() == 0)
        return;

    const auto newValue = storedParameter.convertTo0to1 (float (box.getSelectedId() - 1));

    if (juce::approximatelyEqual (newValue, storedParameter.getValue()))
        return;

    if (undoManager != nullptr)
        undoManager->beginNewTransaction();

    storedParameter.beginChangeGesture();
    storedParameter.setValueNotifyingHost (newValue);
    storedParameter.endChangeGesture();

    if (afterGesture != nullptr)
        afterGesture();
}

} // namespace mk::pluginCore
