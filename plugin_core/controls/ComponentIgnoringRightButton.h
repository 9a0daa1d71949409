// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** Whether these modifiers are of a click that edits: neither another button than the left one nor ctrl is held.
    Whether the system takes a ctrl-click as a right click plays no part: it never edits. Any thread. */
[[nodiscard]] inline bool isEditingClick (juce::ModifierKeys modifiers) noexcept
{
    return ! modifiers.testFlags (juce::ModifierKeys::rightButtonModifier | juce::ModifierKeys::middleButtonModifier
                                  | juce::ModifierKeys::ctrlModifier);
}

/** Whether these modifiers are of a click that asks for a menu: with the right button or with ctrl, on every
    system. Any thread. */
[[nodiscard]] inline bool isMenuClick (juce::ModifierKeys modifiers) noexcept
{
    return modifiers.testFlags (juce::ModifierKeys::rightButtonModifier | juce::ModifierKeys::ctrlModifier);
}

/** A widget that reacts to the left button alone: clicks of other buttons and ctrl-clicks never reach Base.

    A press and its release reach Base together or not at all, whichever keys go down or up in between, so
    that no drag stays open. [message thread] */
template <typename Base>
class ComponentIgnoringRightButton : public Base
{
public:
    using Base::Base;

    void mouseDown (const juce::MouseEvent& event) override
    {
        press = isEditingClick (event.mods) ? Press::taken : Press::ignored;

        if (press == Press::taken)
            Base::mouseDown (event);
    }

    void mouseDrag (const juce::MouseEvent& event) override
    {
        if (press != Press::ignored && isEditingClick (event.mods))
            Base::mouseDrag (event);
    }

    void mouseUp (const juce::MouseEvent& event) override
    {
        const auto isTaken = press == Press::taken || (press == Press::none && isEditingClick (event.mods));

        // An ignored press stays so until the next one: the double click comes after the release.
        if (press == Press::taken)
            press = Press::none;

        if (isTaken)
            Base::mouseUp (event);
    }

    void mouseDoubleClick (const juce::MouseEvent& event) override
    {
        if (press != Press::ignored && isEditingClick (event.mods))
            Base::mouseDoubleClick (event);
    }

private:
    enum class Press
    {
        none,
        taken,
        ignored
    };

    Press press = Press::none;
};

} // namespace mk::pluginCore
