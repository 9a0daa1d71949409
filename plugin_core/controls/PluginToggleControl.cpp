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

    // Added after the attachment, so that a click is written to the parameter before buttonClicked() is called.
    button->addListener (this);
    buttonStateChanged (button.get());
}

PluginToggleControl::~PluginToggleControl() { button->removeListener (this); }

void PluginToggleControl::resized() { button->setBounds (getLocalBounds()); }
void PluginToggleControl::lookAndFeelChanged() { buttonStateChanged (button.get()); }

void PluginToggleControl::buttonClicked (juce::Button*)
{
    // This is called for a click of the user and for a value from the host alike. In the latter case the parameter
    // holds a lock, under which the state must not be locked, so the flush is asynchronous.
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

    // This is also called whenever the mouse enters the button.
    if (button->getTooltip() != tooltip)
        button->setTooltip (tooltip);
}

} // namespace mk::pluginCore
