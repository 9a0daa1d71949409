// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** Scrolls an open menu that is higher than the screen to the entry that the keys have highlighted. JUCE scrolls
    only for screen readers, so without one the entry could be outside the screen. [message thread] */
class MenuKeyScroller : private juce::KeyListener, private juce::AsyncUpdater
{
public:
    MenuKeyScroller() = default;
    ~MenuKeyScroller() override;

    /** Follows the menu that has just been opened, if there is one, and stops following the previous one. */
    void followOpenMenu();

private:
    void follow (juce::Component* newMenu);
    bool keyPressed (const juce::KeyPress& key, juce::Component* origin) override;
    void handleAsyncUpdate() override;

    juce::Component::SafePointer<juce::Component> menu;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MenuKeyScroller)
};

} // namespace mk::pluginCore
