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

/** The change of the reassigned frequency from bin to bin, as a share of the bins' distance, which is also the mixed
    derivative of the phase: 1 + Re (X_td / X - X_d X_t / X^2) with the transforms under the window, its derivative,
    its ramp, and the product of both (Nelson, JASA 110, 2001; Fulop and Fitz, JASA 121, 2007,
    10.1121/1.2431329). 0 for a steady tone, of which all bins have the same frequency; 1 for a click, of which each
    bin keeps its own; any number in noise and between components.

    @param rampDerivative  transform under the time-weighted derivative of the window, scaled like plain

    The other parameters are those of reassign(). */
[[nodiscard]] inline float getFrequencySlope (ComplexValue plain,
                                              ComplexValue derivative,
                                              ComplexValue ramp,
                                              ComplexValue rampDerivative,
                                              float magnitude) noexcept
{
    const auto inverse = 1.0f / (magnitude * magnitude);
    const ComplexValue d { (derivative.re * plain.re + derivative.im * plain.im) * inverse,
                           (derivative.im * plain.re - derivative.re * plain.im) * inverse };
    const ComplexValue t { (ramp.re * plain.re + ramp.im * plain.im) * inverse,
                           (ramp.im * plain.re - ramp.re * plain.im) * inverse };
    const auto both = (rampDerivative.re * plain.re + rampDerivative.im * plain.im) * inverse;

    return 1.0f + both - (d.re * t.re - d.im * t.im);
}

} // namespace mk::orlo
