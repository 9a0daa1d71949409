// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ContextMenu.h"

namespace mk::orlo::contextMenu
{

void fill (juce::PopupMenu& menu, const State& state)
{
    menu.clear();
    menu.addItem (freeze, state.isFrozen ? juce::translate ("Unfreeze") : juce::translate ("Freeze"));
    menu.addItem (exportPicture, juce::translate ("Export as PNG"), state.isFrozen);
    menu.addSeparator();
    menu.addItem (
        view, state.isFullView ? juce::translate ("Switch to Standard View") : juce::translate ("Switch to Full View"));
    menu.addItem (keyboard, state.isKeyboardOn ? juce::translate ("Hide Piano") : juce::translate ("Show Piano"));
    menu.addItem (ruler, state.isRulerOn ? juce::translate ("Hide Ruler") : juce::translate ("Show Ruler"));
    menu.addSeparator();
    menu.addItem (manual, juce::translate ("Manual"));
}

} // namespace mk::orlo::contextMenu
