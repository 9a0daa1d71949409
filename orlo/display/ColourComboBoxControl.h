// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/attachments/ComboBoxAttachment.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/controls/MenuKeyScroller.h"
#include "plugin_core/settings/PluginGlobalSettings.h"

#include <memory>

namespace mk::orlo
{

/** The box for choosing a colour map from a list of previews. A choice of the user is remembered as the
    preferred map; one made by a preset or the host is not. [message thread] */
class ColourComboBoxControl : public juce::Component
{
public:
    /** The state must outlive the control; if the id names no parameter, the box sets none. */
    ColourComboBoxControl (juce::AudioProcessorValueTreeState& state, const juce::String& paramID);
    ~ColourComboBoxControl() override;

    [[nodiscard]] juce::ComboBox& getComboBox() noexcept { return comboBox; }
    [[nodiscard]] const juce::String& getParamID() const noexcept { return paramID; }

    void setTooltip (const juce::String& tooltip) { comboBox.setTooltip (tooltip); }

    /** Opens the list. */
    void showPopup();

    /** Chooses the entry at a distance from the current one, wrapping round at the ends. The parameter is set
        asynchronously. */
    void step (int distance);

    void resized() override { comboBox.setBounds (getLocalBounds()); }

private:
    class Box final : public pluginCore::ComponentIgnoringRightButton<juce::ComboBox>
    {
    public:
        void showPopup() override;

    private:
        pluginCore::MenuKeyScroller keyScroller;
    };

    void rememberChoice();

    const juce::String paramID;
    Box comboBox;
    const pluginCore::PluginGlobalSettings globalSettings;
    std::unique_ptr<pluginCore::ComboBoxAttachment> attachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ColourComboBoxControl)
};

/** The position at a distance from another one in a ring of count positions, 0 to count - 1; -1 if count
    is 0. Any thread. */
[[nodiscard]] int stepAround (int position, int distance, int count) noexcept;

} // namespace mk::orlo
