// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TabAttachment.h"

#include <algorithm>
#include <utility>

namespace mk::pluginCore
{

TabAttachment::TabAttachment (juce::RangedAudioParameter& parameterToAttach,
                              const juce::Array<juce::Button*>& buttonsInOrder,
                              juce::UndoManager* undoManager,
                              std::function<void()> callbackAfterGesture)
    : buttons (buttonsInOrder.begin(), buttonsInOrder.end()),
      parameter (parameterToAttach),
      afterGesture (std::move (callbackAfterGesture)),
      attachment (
          parameter,
          [this] (float value) { parameterChangedCallback (value); },
          undoManager)
{
    for (const auto& button : buttons)
        if (button != nullptr)
            button->addListener (this);

    attachment.sendInitialUpdate();
}

TabAttachment::~TabAttachment()
{
    for (const auto& button : buttons)
        if (button != nullptr)
            button->removeListener (this);
}

void TabAttachment::parameterChangedCallback (float value)
{
    const auto index = juce::roundToInt (value);

    if (! juce::isPositiveAndBelow (index, int (buttons.size())))
        return;

    if (const auto& button = buttons[size_t (index)])
        button->setToggleState (true, juce::dontSendNotification);
}

void TabAttachment::buttonClicked (juce::Button* button)
{
    if (! button->getToggleState())
        return;

    const auto found = std::find (buttons.begin(), buttons.end(), button);

    if (found == buttons.end())
        return;

    attachment.setValueAsCompleteGesture (float (std::distance (buttons.begin(), found)));

    if (afterGesture != nullptr)
        afterGesture();
}

} // namespace mk::pluginCore
