// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <array>

namespace mk::orlo::colourTables
{

inline constexpr size_t numMaps = 46;
inline constexpr size_t magmaIndex = 5;

/** The names of the maps, in the order of the colourMap parameter. */
[[nodiscard]] const std::array<const char*, numMaps>& getNames() noexcept;

/** The colours that the maps are stored with. Unpacked at the first call, from any thread, and shared
    by the whole process from then on. */
[[nodiscard]] const std::array<juce::Array<juce::Colour>, numMaps>& getAll();

} // namespace mk::orlo::colourTables
