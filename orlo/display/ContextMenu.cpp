// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ContextMenu.h"

#include <array>

namespace mk::orlo::contextMenu
{
namespace
{
// In the order of PointsKept.
constexpr std::array pointsTexts { "All", "Lines", "Clicks", "Lines and Clicks" };

[[nodiscard]] juce::PopupMenu makePointsMenu (PointsKept current)
{
    juce::PopupMenu menu;

    for (int i = 0; i < int (pointsTexts.size()); ++i)
        menu.addItem (points + i, juce::translate (pointsTexts[size_t (i)]), true, i == int (current));

    return menu;
}
} // namespace

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
    menu.addSeparator();
    menu.addSubMenu (juce::translate ("Points"), makePointsMenu (state.pointsKept), state.isEnhanced);
}

std::optional<PointsKept> findPoints (int item) noexcept
{
    if (item < points || item >= points + int (pointsTexts.size()))
        return std::nullopt;

    return PointsKept (item - points);
}

} // namespace mk::orlo::contextMenu
