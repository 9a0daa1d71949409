// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cmath>

/** The psychoacoustic scales and their inverses, for frequencies in hertz from 0 up. */
namespace mk::orlo::formulas
{

/** O'Shaughnessy (1987). */
[[nodiscard]] inline float melFromHertz (float hz) noexcept { return 2595.0f * std::log10 (1.0f + hz / 700.0f); }

[[nodiscard]] inline float hertzFromMel (float mel) noexcept
{
    return (std::pow (10.0f, mel / 2595.0f) - 1.0f) * 700.0f;
}

/** Traunmueller (1990). */
[[nodiscard]] inline float barkFromHertz (float hz) noexcept { return 26.81f * hz / (hz + 1960.0f) - 0.53f; }

[[nodiscard]] inline float hertzFromBark (float bark) noexcept { return (0.53f + bark) * 1960.0f / (26.28f - bark); }

/** The ERB-rate scale of Glasberg and Moore (1990). */
[[nodiscard]] inline float erbFromHertz (float hz) noexcept { return 21.4f * std::log10 (1.0f + 4.37f * hz / 1000.0f); }

[[nodiscard]] inline float hertzFromErb (float erb) noexcept
{
    return (std::pow (10.0f, erb / 21.4f) - 1.0f) * 228.83296f;
}

} // namespace mk::orlo::formulas
