// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ContextMenu.h"

#include "orlo/state/TuningSettings.h"

#include <array>

namespace mk::orlo::contextMenu
{
namespace
{
constexpr std::array concertPitches { 415, 430, 432, 435, 440, 441, 442, 443, 444, 466 };

// In the order of PointsKept.
constexpr std::array pointsTexts { "All", "Lines", "Clicks", "Lines and Clicks" };

[[nodiscard]] juce::PopupMenu makePointsMenu (PointsKept current)
{
    juce::PopupMenu menu;
    menu.addSectionHeader (juce::translate ("Which points Enhanced draws"));

    for (int i = 0; i < int (pointsTexts.size()); ++i)
        menu.addItem (points + i, juce::translate (pointsTexts[size_t (i)]), true, i == int (current));

    return menu;
}

[[nodiscard]] juce::PopupMenu makeSourceMenu (Source current)
{
    juce::PopupMenu menu;
    menu.addSectionHeader (juce::translate ("Which channels are analysed"));

    for (int i = 0; i < int (sourceNames.size()); ++i)
        menu.addItem (source + i, juce::translate (sourceNames[size_t (i)]), true, i == int (current));

    return menu;
}

[[nodiscard]] juce::PopupMenu makeConcertPitchMenu (double current)
{
    juce::PopupMenu menu;
    menu.addSectionHeader (juce::translate ("The pitch that notes are named by"));
    auto isOffered = false;

    for (int i = 0; i < int (concertPitches.size()); ++i)
    {
        const auto pitch = concertPitches[size_t (i)];
        const auto isCurrent = juce::approximatelyEqual (double (pitch), current);
        isOffered = isOffered || isCurrent;
        menu.addItem (concertPitch + i, juce::String (pitch) + " " + juce::translate ("Hz"), true, isCurrent);
    }

    const auto own = isOffered ? juce::String() : " (" + data::formatConcertPitch (current) + ")";
    menu.addSeparator();
    menu.addItem (otherConcertPitch, juce::translate ("Other...") + own, true, ! isOffered);
    return menu;
}

[[nodiscard]] juce::String getMiddleCName (int octave) { return "C" + juce::String (octave); }

[[nodiscard]] juce::PopupMenu makeMiddleCMenu (std::optional<int> current, int hostsOctave)
{
    juce::PopupMenu menu;
    menu.addSectionHeader (juce::translate ("The name of the middle C of the piano"));
    menu.addItem (
        middleC, juce::translate ("As in the host") + " (" + getMiddleCName (hostsOctave) + ")", true, ! current);

    for (auto octave = data::TuningSettings::lowestMiddleC; octave <= data::TuningSettings::highestMiddleC; ++octave)
        menu.addItem (middleC + octave, getMiddleCName (octave), true, current == octave);

    return menu;
}

void addExports (juce::PopupMenu& menu, const State& state)
{
    juce::PopupMenu sound, numbers;
    sound.addItem (saveVisibleSound, juce::translate ("Visible range..."));
    sound.addItem (saveAllSound, juce::translate ("All that is kept..."));
    numbers.addItem (exportLevels, juce::translate ("Levels (.npy)..."));
    numbers.addItem (exportPoints, juce::translate ("Points (.csv)..."));

    menu.addItem (exportStill, juce::translate ("Export picture..."), state.isSoundKept);
    menu.addSubMenu (juce::translate ("Save sound"), sound, state.isSoundKept);
    menu.addItem (copyPicture,
                  state.canCopyPictures ? juce::translate ("Copy picture")
                                        : juce::translate ("Copy picture (not possible on this system)"),
                  state.isSoundKept && state.canCopyPictures);
    menu.addSubMenu (juce::translate ("Export numbers"), numbers, state.isSoundKept);
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
    menu.addSubMenu (juce::translate ("Source"), makeSourceMenu (state.source), state.isStereo);
    menu.addSubMenu (juce::translate ("A4"), makeConcertPitchMenu (state.concertPitch));
    menu.addSubMenu (juce::translate ("Middle C"), makeMiddleCMenu (state.middleC, state.hostsMiddleC));
    menu.addSeparator();
    addExports (menu, state);
}

std::optional<PointsKept> findPoints (int item) noexcept
{
    if (item < points || item >= points + int (pointsTexts.size()))
        return std::nullopt;

    return PointsKept (item - points);
}

std::optional<Source> findSource (int item) noexcept
{
    if (item < source || item >= source + int (sourceNames.size()))
        return std::nullopt;

    return Source (item - source);
}

std::optional<double> findConcertPitch (int item) noexcept
{
    if (item < concertPitch || item >= concertPitch + int (concertPitches.size()))
        return std::nullopt;

    return concertPitches[size_t (item - concertPitch)];
}

std::optional<std::optional<int>> findMiddleC (int item) noexcept
{
    if (item == middleC)
        return std::optional<std::optional<int>> (std::in_place);

    const auto octave = item - middleC;

    if (octave < data::TuningSettings::lowestMiddleC || octave > data::TuningSettings::highestMiddleC)
        return std::nullopt;

    return std::optional (octave);
}

} // namespace mk::orlo::contextMenu
