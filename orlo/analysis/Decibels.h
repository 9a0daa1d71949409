// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace mk::orlo
{

/** The lowest level that is distinguished from silence. */
inline constexpr float silenceDb = -140.0f;

/** The amplitude of silenceDb. */
inline constexpr float silenceMagnitude = 1.0e-7f;

/** Linear amplitude to decibels, at least silenceDb, within 0.0001 dB. Zero, negative amplitudes and NaN are silence.
    Infinity reads 770.6 dB, a little more than the largest number. Without a branch or a call, so that loops over it
    are vectorised. */
[[nodiscard]] inline float fastDecibels (float magnitude) noexcept
{
    // The number is taken apart into a power of two and a factor from the square root of 1/2 to that of 2. For normal
    // numbers its bits, as an integer, are the exponent times 2^23 and the fraction.
    constexpr auto fractionBits = 23;
    constexpr std::uint32_t bitsOfSquareRootOfHalf = 0x3f3504f3;
    const auto bits = std::bit_cast<std::uint32_t> (magnitude);
    const auto exponent = std::int32_t (bits - bitsOfSquareRootOfHalf) >> fractionBits;
    const auto x = std::bit_cast<float> (bits - (std::uint32_t (exponent) << fractionBits)) - 1.0f;

    // 20 log10 (1 + x) by the polynomial of its degree whose largest error in that range is smallest, 0.000002 dB.
    auto factor = 1.02732044f;
    factor = factor * x - 1.64180473f;
    factor = factor * x + 1.78969942f;
    factor = factor * x - 2.16116573f;
    factor = factor * x + 2.89268772f;
    factor = factor * x - 4.34311551f;
    factor = factor * x + 8.68591785f;

    constexpr auto decibelsOfTwo = 6.02059991f;
    const auto decibels = factor * x + float (exponent) * decibelsOfTwo;
    return magnitude > silenceMagnitude ? decibels : silenceDb;
}

/** fastDecibels() of count amplitudes. The arrays must not overlap. */
void fastDecibels (const float* magnitudes, float* decibels, size_t count) noexcept;

/** Turns count amplitudes into levels, in place: 0 at floorDb and less, 1 at ceilingDb and more. The floor may be above
    the ceiling. If they are equal, a level can be NaN. Within 0.0001 dB of std::log10's levels. */
void magnitudesToLevels (float* values, size_t count, float floorDb, float ceilingDb) noexcept;

} // namespace mk::orlo
