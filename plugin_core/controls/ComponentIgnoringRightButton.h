// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** Whether a click with these modifiers edits: no button but the left one is held, and ctrl is not held. A
    ctrl-click never edits, whether or not the system treats it as a right click. Any thread. */
[[nodiscard]] inline bool isEditingClick (juce::ModifierKeys modifiers) noexcept
{
    return ! modifiers.testFlags (juce::ModifierKeys::rightButtonModifier | juce::ModifierKeys::middleButtonModifier
                                  | juce::ModifierKeys::ctrlModifier);
}

/** Whether a click with these modifiers opens a menu: it is made with the right button or with ctrl, on every
    system. Any thread. */
[[nodiscard]] inline bool isMenuClick (juce::ModifierKeys modifiers) noexcept
{
    return modifiers.testFlags (juce::ModifierKeys::rightButtonModifier | juce::ModifierKeys::ctrlModifier);
}

/** A widget that reacts only to the left button: clicks of other buttons and ctrl-clicks never reach Base.

    A press and its release reach Base both or not at all, even if modifier keys change in between, so that
    every drag that starts also ends. [message thread] */
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

        // JUCE reports a double click after the release, so an ignored press is remembered until the next press.
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
