// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "../attachments/ButtonAttachment.h"
#include "plugin_core/processor/PluginProcessor.h"

#include <array>
#include <memory>

namespace mk::pluginCore
{

/** A button that is on while its parameter is, with a tooltip for each state. [message thread] */
class PluginToggleControl : public juce::Component, public juce::Button::Listener
{
public:
    /** Takes ownership of the button. A button without an accessibility title gets the parameter's name. The
        processor must outlive the control; an id that names no parameter leaves the button unattached. */
    PluginToggleControl (PluginProcessor& processor,
                         const juce::String& paramID,
                         juce::Button* button,
                         const juce::String& tooltipOff,
                         const juce::String& tooltipOn);
    ~PluginToggleControl() override;

    [[nodiscard]] juce::Button& getButton() noexcept { return *button; }
    [[nodiscard]] const juce::String& getParamID() const noexcept { return paramID; }

    void resized() override;
    void lookAndFeelChanged() override;
    void buttonClicked (juce::Button*) override;
    void buttonStateChanged (juce::Button*) override;

private:
    juce::AudioProcessorValueTreeState& state;
    const std::array<juce::String, 2> tooltips; // by the toggle state
    const juce::String paramID;
    const std::unique_ptr<juce::Button> button;
    std::unique_ptr<ButtonAttachment> attachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginToggleControl)
};

} // namespace mk::pluginCore
