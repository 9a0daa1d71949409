// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/PointsKept.h"
#include "orlo/analysis/Source.h"

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

    points = 1000, /**< The first of the choices of points; the others follow in the order of PointsKept. */

    source = 1100, /**< The mean; the others follow in the order of Source. */

    concertPitch = 1200,      /**< The first of the pitches offered. */
    otherConcertPitch = 1299, /**< To type one. */
    middleC = 1300,           /**< As the host names it; the number of an octave is added for each of the others. */

    exportStill = 1400, /**< A picture with axes. */
    saveVisibleSound,
    saveAllSound,
    copyPicture,
    exportLevels,
    exportPoints
};

/** The state that decides on the texts of the menu and on which entries are enabled. */
struct State
{
    bool isFrozen, isFullView, isKeyboardOn, isRulerOn;
    bool isEnhanced = true; /**< Only Enhanced has points to choose from. */
    PointsKept pointsKept = PointsKept::all;
    double concertPitch = 440.0;   /**< Hertz. */
    std::optional<int> middleC {}; /**< The number of its octave, or nothing if it is the host's. */
    int hostsMiddleC = 3;
    bool isStereo = true; /**< One channel has no sources to choose from. */
    Source source = Source::mean;
    bool isSoundKept = false;    /**< Without it there is nothing to export but the picture of the window. */
    bool canCopyPictures = true; /**< Whether the system lets a plug-in put pictures on the clipboard. */
};

/** Replaces the menu's content with the entries for the state. */
void fill (juce::PopupMenu& menu, const State& state);

/** The points that an item chooses, or nothing for another item. */
[[nodiscard]] std::optional<PointsKept> findPoints (int item) noexcept;

/** The source that an item chooses, or nothing for another item. */
[[nodiscard]] std::optional<Source> findSource (int item) noexcept;

/** The pitch in hertz that an item chooses, or nothing for another item. */
[[nodiscard]] std::optional<double> findConcertPitch (int item) noexcept;

/** The octave of middle C that an item chooses, which is nothing if it is the host's, or nothing for another item. */
[[nodiscard]] std::optional<std::optional<int>> findMiddleC (int item) noexcept;

} // namespace mk::orlo::contextMenu
