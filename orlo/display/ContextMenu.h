// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/PointsKept.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

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
    manual,

    points = 1000 /**< The first of the choices of points; the others follow in the order of PointsKept. */
};

/** The state that decides on the texts of the menu and on which entries are enabled. */
struct State
{
    bool isFrozen, isFullView, isKeyboardOn, isRulerOn;
    bool isEnhanced = true; /**< Only Enhanced has points to choose from. */
    PointsKept pointsKept = PointsKept::all;
};

/** Replaces the menu's content with the entries for the state. */
void fill (juce::PopupMenu& menu, const State& state);

/** The points that an item chooses, or nothing for another item. */
[[nodiscard]] std::optional<PointsKept> findPoints (int item) noexcept;

} // namespace mk::orlo::contextMenu
