// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginToggleControl.h"

#include "plugin_core/attachments/UndoFlush.h"

namespace mk::pluginCore
{

PluginToggleControl::PluginToggleControl (PluginProcessor& processor,
                                          const juce::String& id,
                                          juce::Button* buttonToOwn,
                                          const juce::String& tooltipOff,
                                          const juce::String& tooltipOn)
    : state (processor.getParameterState()), tooltips { tooltipOff, tooltipOn }, paramID (id), button (buttonToOwn)
{
    addAndMakeVisible (*button);
    button->setClickingTogglesState (true);

    if (auto* parameter = state.getParameter (paramID))
    {
        if (button->getTitle().isEmpty())
            button->setTitle (juce::translate (parameter->getName (128)));

        attachment = std::make_unique<ButtonAttachment> (*parameter, *button, state.undoManager);
    }

    // After the attachment, so that a click has been written when this hears of it.
    button->addListener (this);
    buttonStateChanged (button.get());
}

PluginToggleControl::~PluginToggleControl() { button->removeListener (this); }

void PluginToggleControl::resized() { button->setBounds (getLocalBounds()); }
void PluginToggleControl::lookAndFeelChanged() { buttonStateChanged (button.get()); }

void PluginToggleControl::buttonClicked (juce::Button*)
{
    // A click of the user and a value of the host look the same here. With the latter the parameter holds a lock
    // at this moment, under which the state must not be locked.
    juce::MessageManager::callAsync (
        [control = SafePointer<PluginToggleControl> (this)]
        {
            if (control != nullptr)
                flushIntoTransaction (control->state);
        });
}

void PluginToggleControl::buttonStateChanged (juce::Button*)
{
    const auto& tooltip = tooltips[button->getToggleState() ? 1 : 0];

    // This is also called at each move of the mouse onto the button.
    if (button->getTooltip() != tooltip)
        button->setTooltip (tooltip);
}

} // namespace mk::pluginCore
