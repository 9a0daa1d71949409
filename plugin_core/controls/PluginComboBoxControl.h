// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ComponentIgnoringRightButton.h"

#include "plugin_core/attachments/ComboBoxAttachment.h"
#include "plugin_core/processor/PluginProcessor.h"

#include <memory>

namespace mk::pluginCore
{

/** A box with the choices of a parameter, whose entries have the ids 1, 2, 3 ... in their order. Choices with
    an empty name are reserved and not shown. [message thread] */
class PluginComboBoxControl : public juce::Component
{
public:
    /** The parameter's name is the box's accessibility title. The owner of the parameter must outlive the
        control; an id that names no parameter leaves the box empty. */
    PluginComboBoxControl (juce::AudioProcessorValueTreeState& state, const juce::String& paramID);
    PluginComboBoxControl (PluginProcessor& processor, const juce::String& paramID);

    [[nodiscard]] juce::ComboBox& getComboBox() noexcept { return comboBox; }
    [[nodiscard]] const juce::String& getParamID() const noexcept { return paramID; }

    void setTooltip (const juce::String& tooltip) { comboBox.setTooltip (tooltip); }

    void resized() override { comboBox.setBounds (getLocalBounds()); }

private:
    const juce::String paramID;
    ComponentIgnoringRightButton<juce::ComboBox> comboBox;
    std::unique_ptr<ComboBoxAttachment> attachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginComboBoxControl)
};

} // namespace mk::pluginCore
