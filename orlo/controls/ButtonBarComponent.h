// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/attachments/TabAttachment.h"
#include "plugin_core/controls/AnimatedTextButton.h"

#include <memory>

namespace mk::orlo
{

/** A row of buttons, one for each choice of a parameter; exactly one is on. [message thread] */
class ButtonBarComponent : public juce::Component
{
public:
    /** The state must outlive the bar. An id that names no parameter gives a bar without buttons; choices
        with an empty name get none. */
    ButtonBarComponent (juce::AudioProcessorValueTreeState& state, const juce::String& paramID);
    ~ButtonBarComponent() override;

    [[nodiscard]] int getNumButtons() const noexcept { return buttons.size(); }
    [[nodiscard]] juce::TextButton& getButton (int index) const noexcept { return *buttons.getUnchecked (index); }
    [[nodiscard]] const juce::String& getParamID() const noexcept { return paramID; }

    /** The bounds of a button in a bar of the given size: equal shares of the width, with the remainder
        spread, and one pixel more at the right, which the next button's edge covers. */
    [[nodiscard]] static juce::Rectangle<int>
        getButtonBounds (int index, int numButtons, int width, int height) noexcept;

    void paint (juce::Graphics& g) override;
    void resized() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void addButtons (const juce::StringArray& texts);

    const juce::String paramID;
    juce::OwnedArray<pluginCore::AnimatedTextButton> buttons;
    std::unique_ptr<pluginCore::TabAttachment> attachment;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ButtonBarComponent)
};

} // namespace mk::orlo
