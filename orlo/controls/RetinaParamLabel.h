// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/attachments/ParameterAttachment.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo
{

/** The switch for the resolution of the picture on a high-density display: a small tag that shows the
    current choice and switches to the other one at a click, Space or Return. [message thread] */
class RetinaParamLabel : public juce::Label
{
public:
    /** The parameter must be a choice of two. */
    RetinaParamLabel (juce::AudioProcessorValueTreeState& state, const juce::String& parameterId);

    /** Changes the parameter to its other choice: one gesture, one undo transaction. */
    void flip();

    /** The area of the text and its font, which is small enough for the text to fit without being
        visibly squeezed. */
    [[nodiscard]] juce::Rectangle<int> getTextArea() const;
    [[nodiscard]] juce::Font getTextFont();

    void paint (juce::Graphics& g) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    void mouseEnter (const juce::MouseEvent&) override { repaint(); }
    void mouseExit (const juce::MouseEvent&) override { repaint(); }
    bool keyPressed (const juce::KeyPress& key) override;
    void focusGained (FocusChangeType) override { repaint(); }
    void focusLost (FocusChangeType) override { repaint(); }
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void showValue (float value);
    [[nodiscard]] bool isOn() const;

    juce::AudioProcessorValueTreeState& state;
    juce::RangedAudioParameter& parameter;
    pluginCore::ParameterAttachment attachment;
    bool isPressed = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (RetinaParamLabel)
};

} // namespace mk::orlo
