// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::pluginCore
{

/** A question with two answers, laid out by the look and feel. Return confirms, Escape cancels.
    [message thread] */
class ConfirmDialogComponent final : public juce::Component
{
public:
    /** Implemented by a look and feel that lays these dialogs out. */
    struct LookAndFeelMethods
    {
        virtual ~LookAndFeelMethods() = default;

        /** Gives the three children their bounds within the dialog's rectangle. */
        virtual void layOutConfirmDialog (juce::Rectangle<int> dialog,
                                          juce::Component& question,
                                          juce::Component& confirm,
                                          juce::Component& cancel) = 0;
    };

    ConfirmDialogComponent (const juce::String& question,
                            const juce::String& confirmText,
                            const juce::String& cancelText);

    std::function<void()> onConfirm, onCancel;

    void paint (juce::Graphics& g) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;
    bool keyPressed (const juce::KeyPress& key) override;

private:
    juce::Label questionLabel;
    juce::TextButton confirmButton, cancelButton;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ConfirmDialogComponent)
};

} // namespace mk::pluginCore
