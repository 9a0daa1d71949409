// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PluginLookAndFeel.h"

namespace mk::orlo
{

/** The text box of a slider. Mouse events on it act on the slider, unless the text is being edited. Text
    size and justification depend on the properties of the slider or of its control; the colours are those
    that the slider has for its text box. [message thread] */
class PluginLookAndFeel::SliderLabelComp final : public juce::Label
{
public:
    explicit SliderLabelComp (const juce::Slider& slider);

    /** The font with the height of the scale rule, reduced to fit into the box. */
    [[nodiscard]] juce::Font getTextFont (const PluginLookAndFeel& style) const;

    void mouseEnter (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    void mouseWheelMove (const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;

    juce::TextEditor* createEditorComponent() override;
    void parentHierarchyChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

protected:
    void textEditorReturnKeyPressed (juce::TextEditor& textEditor) override;
    void textEditorEscapeKeyPressed (juce::TextEditor& textEditor) override;

private:
    [[nodiscard]] juce::Slider* findSlider() const;
    void handOn (void (juce::Component::*callback) (const juce::MouseEvent&), const juce::MouseEvent& event);
    void giveKeyboardToSlider();
    void updateJustification (const juce::Slider& slider);

    juce::Time editorOpened; // when a click last opened the editor

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SliderLabelComp)
};

} // namespace mk::orlo
