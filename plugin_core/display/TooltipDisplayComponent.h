// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/window/WindowPoller.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::pluginCore
{

/** A line that shows the help text of the control under the mouse. Polls every 40 ms while the mouse
    moves, and takes no clicks. [message thread] */
class TooltipDisplayComponent final : public juce::Component
{
public:
    TooltipDisplayComponent();

    /** Shown while no control has a tip. */
    void setDefaultText (const juce::String& newText);

    /** Hides the whole line while it has no text. */
    void setHideWhenEmpty (bool shouldHide);

    /** Returns whether this application is in the foreground; a background window shows no tips.
        Asks the system by default. Called only while there is a tip to show. */
    std::function<bool()> isApplicationActive;

    /** Shows the tip of a component as if the mouse were on it; null for none. Called at every poll. */
    void showTipOf (juce::Component* underMouse);

    /** The tip, with the marks around its bold parts; empty if there is none. */
    [[nodiscard]] const juce::String& getTip() const noexcept { return tipText; }

    /** The text as it is painted. */
    [[nodiscard]] const juce::AttributedString& getAttributedText() const noexcept { return attributedText; }

    void paint (juce::Graphics&) override;
    void resized() override;
    void lookAndFeelChanged() override;
    void colourChanged() override;
    void parentHierarchyChanged() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    void lookUnderMouse();
    [[nodiscard]] bool belongsToOtherWindow (const juce::Component& component) const;
    void updateFonts();
    void rebuild();

    juce::Font regularFont, boldFont;
    juce::String tipText, defaultText;
    bool hideWhenEmpty = false;
    juce::AttributedString attributedText;
    juce::TextLayout layout; // of attributedText; kept because this is repainted with each frame of the picture

    // From the last poll.
    juce::Component::SafePointer<juce::Component> lastComponent;
    juce::String lastTip;

    const WindowPoller::Client pollerClient;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TooltipDisplayComponent)
};

} // namespace mk::pluginCore
