// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The menu that a right click on the picture opens. [message thread] */
namespace mk::orlo::contextMenu
{

enum Item
{
    freeze = 1,
    exportPicture,
    ruler,
    keyboard,
    view,
    manual
};

/** The state that decides on the texts of the menu and on which entries are enabled. */
struct State
{
    bool isFrozen, isFullView, isKeyboardOn, isRulerOn;
};

/** Replaces the menu's content with the entries for the state. */
void fill (juce::PopupMenu& menu, const State& state);

} // namespace mk::orlo::contextMenu
