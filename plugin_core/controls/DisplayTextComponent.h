// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** A text to be read: it scrolls, and can be selected and copied but not changed. [message thread] */
class DisplayTextComponent final : public juce::Component
{
public:
    DisplayTextComponent();

    /** How many characters of a text are shown, and after how many without a blank a line ends. Laying out more
        than that would hold the message thread up, for seconds if it is a single word. */
    static constexpr int maxCharacters = 20000;
    static constexpr int maxWordLength = 80;

    /** Shows the text, or as much of it as there is room for, from its beginning. */
    void setText (const juce::String& text);

    [[nodiscard]] const juce::TextEditor& getTextEditor() const noexcept { return textEditor; }

    /** How far the text is scrolled, in pixels. */
    [[nodiscard]] int getScrollPosition() const;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;

    /** Scrolls by the arrows, by page, to the beginning and to the end. */
    bool keyPressed (const juce::KeyPress& key) override;

private:
    [[nodiscard]] juce::Viewport* findViewport() const;
    void applyStyle();

    juce::TextEditor textEditor;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DisplayTextComponent)
};

} // namespace mk::pluginCore
