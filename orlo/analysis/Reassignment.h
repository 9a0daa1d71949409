// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo
{

/** Bins below this linear amplitude (-120 dB) are not reassigned, since their quotients are mostly rounding noise. */
inline constexpr float smallestReassignedMagnitude = 1.0e-6f;

/** A complex number. Unlike std::complex, it leaves loops over numbers to the vectoriser. */
struct ComplexValue
{
    float re, im;
};

/** The distance of a bin's energy from the bin's own time and frequency. */
struct ReassignmentShifts
{
    float time;      /**< Samples from the centre of the window. */
    float frequency; /**< Hertz from the centre of the bin. */
};

/** The reassignment operators of Auger and Flandrin (1995), from the three transforms of one bin.

    @param plain       transform under the plain window
    @param derivative  transform under the window's derivative, scaled like plain
    @param ramp        transform under the time-weighted window, scaled like plain
    @param magnitude   |plain|, not zero
    @param rate        samples per second
*/
[[nodiscard]] inline ReassignmentShifts
    reassign (ComplexValue plain, ComplexValue derivative, ComplexValue ramp, float magnitude, float rate) noexcept
{
    constexpr auto inverseTwoPi = 0.15915494f;
    const auto inverse = 1.0f / (magnitude * magnitude);

    return { (ramp.re * plain.re + ramp.im * plain.im) * inverse,
             -((derivative.im * plain.re - derivative.re * plain.im) * inverse) * rate * inverseTwoPi };
}

} // namespace mk::orlo
