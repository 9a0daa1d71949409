// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginComboBoxControl.h"

#include "plugin_core/attachments/UndoFlush.h"

namespace mk::pluginCore
{

PluginComboBoxControl::PluginComboBoxControl (juce::AudioProcessorValueTreeState& state, const juce::String& id)
    : paramID (id)
{
    addAndMakeVisible (comboBox);
    auto* parameter = state.getParameter (paramID);

    if (parameter == nullptr)
        return;

    const auto* choice = dynamic_cast<const juce::AudioParameterChoice*> (parameter);
    const auto names = choice != nullptr ? choice->choices : parameter->getAllValueStrings();

    for (int i = 0; i < names.size(); ++i)
        if (names[i].isNotEmpty())
            comboBox.addItem (juce::translate (names[i]), i + 1);

    comboBox.setTitle (juce::translate (parameter->getName (128)));
    attachment = std::make_unique<ComboBoxAttachment> (
        *parameter, comboBox, state.undoManager, [&state] { flushIntoTransaction (state); });
}

PluginComboBoxControl::PluginComboBoxControl (PluginProcessor& processor, const juce::String& id)
    : PluginComboBoxControl (processor.getParameterState(), id)
{
}

} // namespace mk::pluginCore
