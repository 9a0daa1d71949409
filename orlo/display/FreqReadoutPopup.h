// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Readout.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo
{

/** The tag on the picture with the frequency and the note under the cursor. Takes no clicks.
    [message thread] */
class FreqReadoutPopup final : public juce::Component
{
public:
    FreqReadoutPopup();

    /** Shows the text in the parent, which must exist.

        @param event         of the mouse, on any component of the parent
        @param followCursor  true: next to the cursor; false: at the lower left of the view
        @param view          the picture, in the parent's coordinates
    */
    void show (const juce::MouseEvent& event, const juce::String& text, bool followCursor, juce::Rectangle<int> view);

    [[nodiscard]] const juce::String& getText() const noexcept { return text; }
    [[nodiscard]] juce::Justification getJustification() const noexcept { return justification; }
    [[nodiscard]] const juce::Font& getFont() const noexcept { return font; }

    void paint (juce::Graphics&) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    [[nodiscard]] int getTagHeight() const;
    void updateFont();

    juce::Font font;
    juce::String text;
    juce::Justification justification = juce::Justification::centredLeft;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FreqReadoutPopup)
};

} // namespace mk::orlo
