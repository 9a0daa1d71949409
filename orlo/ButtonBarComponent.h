// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo
{

/** A row of buttons of which one is on. [message thread] */
class ButtonBarComponent : public juce::Component
{
public:
    explicit ButtonBarComponent (const juce::StringArray& texts);

    [[nodiscard]] int getNumButtons() const noexcept { return buttons.size(); }
    [[nodiscard]] juce::TextButton& getButton (int index) const noexcept { return *buttons.getUnchecked (index); }

    /** The bounds of a button in a bar of the given size: equal shares of the width, with the remainder
        spread, and a pixel more to the right, where the next one's edge lies over it. */
    [[nodiscard]] static juce::Rectangle<int>
        getButtonBounds (int index, int numButtons, int width, int height) noexcept;

    void paint (juce::Graphics& g) override;
    void resized() override;

private:
    juce::OwnedArray<juce::TextButton> buttons;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ButtonBarComponent)
};

} // namespace mk::orlo
