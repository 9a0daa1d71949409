// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <complex>

namespace mk::orlo
{

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
[[nodiscard]] inline ReassignmentShifts reassign (std::complex<float> plain,
                                                  std::complex<float> derivative,
                                                  std::complex<float> ramp,
                                                  float magnitude,
                                                  float rate) noexcept
{
    constexpr auto inverseTwoPi = 0.15915494f;
    const auto inverse = 1.0f / (magnitude * magnitude);

    return { (ramp.real() * plain.real() + ramp.imag() * plain.imag()) * inverse,
             -((derivative.imag() * plain.real() - derivative.real() * plain.imag()) * inverse) * rate * inverseTwoPi };
}

} // namespace mk::orlo
