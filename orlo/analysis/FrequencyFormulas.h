// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cmath>

/** The psychoacoustic scales and their inverses, for frequencies in hertz from 0 up.

    In double precision, since the ends of a range of a few hertz have almost equal values, whose difference
    would be less accurate than a pixel in single precision. */
namespace mk::orlo::formulas
{

/** O'Shaughnessy (1987). */
[[nodiscard]] inline double melFromHertz (double hz) noexcept { return 2595.0 * std::log10 (1.0 + hz / 700.0); }

[[nodiscard]] inline double hertzFromMel (double mel) noexcept { return (std::pow (10.0, mel / 2595.0) - 1.0) * 700.0; }

/** Traunmueller (1990). */
[[nodiscard]] inline double barkFromHertz (double hz) noexcept { return 26.81 * hz / (hz + 1960.0) - 0.53; }

[[nodiscard]] inline double hertzFromBark (double bark) noexcept { return (0.53 + bark) * 1960.0 / (26.28 - bark); }

/** The ERB-rate scale of Glasberg and Moore (1990). */
[[nodiscard]] inline double erbFromHertz (double hz) noexcept { return 21.4 * std::log10 (1.0 + 4.37 * hz / 1000.0); }

[[nodiscard]] inline double hertzFromErb (double erb) noexcept
{
    return (std::pow (10.0, erb / 21.4) - 1.0) * (1000.0 / 4.37);
}

} // namespace mk::orlo::formulas
