// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/window/WindowPoller.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

namespace mk::pluginCore
{

/** A line that shows the help text of whatever control is under the mouse. Looks every 40 ms while the
    mouse is over a window, and takes no clicks. [message thread] */
class TooltipDisplayComponent final : public juce::Component
{
public:
    TooltipDisplayComponent();

    /** Shown while no control has a tip. */
    void setDefaultText (const juce::String& newText);

    /** Hides the whole line while it has no text. */
    void setHideWhenEmpty (bool shouldHide);

    /** Tells whether the user is at this application; tips of a background window are not shown.
        Asks the system by default, and only while there is something to show. */
    std::function<bool()> isApplicationActive;

    /** Looks at a component as if the mouse were on it; null for none. Called at every look. */
    void showTipOf (juce::Component* underMouse);

    /** The tip, with the marks around its bold parts; empty if there is none. */
    [[nodiscard]] const juce::String& getTip() const noexcept { return tipText; }

    /** What is painted. */
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
    juce::TextLayout layout; // of attributedText, since the picture beneath is painted all the time

    // Of the last look.
    juce::Component::SafePointer<juce::Component> lastComponent;
    juce::String lastTip;

    const WindowPoller::Client pollerClient;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (TooltipDisplayComponent)
};

} // namespace mk::pluginCore
