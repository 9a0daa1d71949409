// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** A read-only text that scrolls and can be selected and copied. [message thread] */
class DisplayTextComponent final : public juce::Component
{
public:
    DisplayTextComponent();

    /** How many characters of a text are shown, and after how many without a blank a line is broken. Laying out
        more than that would block the message thread, for seconds if it is a single word. */
    static constexpr int maxCharacters = 20000;
    static constexpr int maxWordLength = 80;

    /** Shows the text, cut off after maxCharacters, and scrolls to its beginning. */
    void setText (const juce::String& text);

    [[nodiscard]] const juce::TextEditor& getTextEditor() const noexcept { return textEditor; }

    /** How far the text is scrolled, in pixels. */
    [[nodiscard]] int getScrollPosition() const;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;

    /** Scrolls with the arrow, Page, Home and End keys. */
    bool keyPressed (const juce::KeyPress& key) override;

private:
    [[nodiscard]] juce::Viewport* findViewport() const;
    void applyStyle();

    juce::TextEditor textEditor;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DisplayTextComponent)
};

} // namespace mk::pluginCore
