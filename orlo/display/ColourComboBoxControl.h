// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/attachments/ComboBoxAttachment.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/controls/MenuKeyScroller.h"
#include "plugin_core/settings/PluginGlobalSettings.h"

#include <memory>

namespace mk::orlo
{

/** The box that a colour map is chosen in, from a list of previews. What the user chooses is remembered as
    their map of choice; what a preset or the host chooses is not. [message thread] */
class ColourComboBoxControl : public juce::Component
{
public:
    /** The state must outlive the control; an id that names no parameter gives a box that sets none. */
    ColourComboBoxControl (juce::AudioProcessorValueTreeState& state, const juce::String& paramID);
    ~ColourComboBoxControl() override;

    [[nodiscard]] juce::ComboBox& getComboBox() noexcept { return comboBox; }
    [[nodiscard]] const juce::String& getParamID() const noexcept { return paramID; }

    void setTooltip (const juce::String& tooltip) { comboBox.setTooltip (tooltip); }

    /** Opens the list. */
    void showPopup();

    /** Chooses the entry that lies so many further on. After the last comes the first. The parameter follows
        by a message. */
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

/** The position that lies a distance on from another in a ring of so many positions, 0 to count - 1; -1 if
    there are none. Any thread. */
[[nodiscard]] int stepAround (int position, int distance, int count) noexcept;

} // namespace mk::orlo
