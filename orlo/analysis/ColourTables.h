// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/parameters/ColourMapNames.h"

#include <juce_graphics/juce_graphics.h>

#include <array>

namespace mk::orlo::colourTables
{

inline constexpr size_t numMaps = colourMapNames.size();
inline constexpr size_t magmaIndex = 5;

/** The stored colours of all maps. Unpacked at the first call, which any thread may make, and shared by
    the whole process from then on. */
[[nodiscard]] const std::array<juce::Array<juce::Colour>, numMaps>& getAll();

} // namespace mk::orlo::colourTables
