// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo
{

/** One line over the lower edge of its parent that says what has failed, also to screen readers, until it is clicked or
    another one comes. [message thread] */
class NoticeLine final : public juce::Component
{
public:
    NoticeLine();

    /** Shows the text; an empty one hides the line. The parent must exist. */
    void show (const juce::String& newText);

    [[nodiscard]] const juce::String& getText() const noexcept { return text; }

    void paint (juce::Graphics&) override;
    void mouseDown (const juce::MouseEvent&) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    juce::String text;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (NoticeLine)
};

} // namespace mk::orlo
