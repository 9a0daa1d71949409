// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The keys that open a context menu. [message thread] */
namespace mk::orlo::menuKey
{

/** Whether this is Shift+F10. */
[[nodiscard]] inline bool isShiftF10 (const juce::KeyPress& key)
{
    return key == juce::KeyPress (juce::KeyPress::F10Key, juce::ModifierKeys::shiftModifier, 0);
}

/** Whether the Menu key is down. JUCE sends no key press for that key, only keyStateChanged(), and has no constant
    for its code. A Mac has no such key. */
[[nodiscard]] inline bool isMenuKeyDown()
{
#if JUCE_LINUX || JUCE_BSD
    constexpr auto code = 0xff67; // XK_Menu
    return juce::KeyPress::isKeyCurrentlyDown (code);
#elif JUCE_WINDOWS
    constexpr auto code = 0x1005d; // VK_APPS as an extended key
    return juce::KeyPress::isKeyCurrentlyDown (code);
#else
    return false;
#endif
}

} // namespace mk::orlo::menuKey
