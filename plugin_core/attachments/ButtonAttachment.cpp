// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ButtonAttachment.h"

namespace mk::pluginCore
{

ButtonAttachment::ButtonAttachment (juce::RangedAudioParameter& parameter,
                                    juce::Button& buttonToAttach,
                                    juce::UndoManager* undoManager)
    : button (buttonToAttach),
      attachment (
          parameter,
          [this] (float value) { showValue (value); },
          undoManager)
{
    attachment.sendInitialUpdate();
    button.addListener (this);
}

ButtonAttachment::~ButtonAttachment() { button.removeListener (this); }

void ButtonAttachment::showValue (float value)
{
    const juce::ScopedValueSetter<bool> setter (ignoreCallbacks, true);
    button.setToggleState (value >= 0.5f, juce::sendNotificationSync);
}

void ButtonAttachment::buttonClicked (juce::Button*)
{
    if (! ignoreCallbacks)
        attachment.setValueAsCompleteGesture (button.getToggleState() ? 1.0f : 0.0f);
}

} // namespace mk::pluginCore
