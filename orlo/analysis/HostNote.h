// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>

namespace mk::orlo
{

/** Where the host's song stood at a sample of the kept sound. */
struct HostNote
{
    static constexpr double unknown = std::numeric_limits<double>::quiet_NaN();

    std::int64_t position = 0;      /**< The sample, as KeptSound counts them. */
    double quarters = unknown;      /**< Quarter notes since the song's start; a NaN if the host does not tell. */
    double barStart = unknown;      /**< Quarter notes from the song's start to that of the bar; a NaN if not told. */
    double quartersPerMinute = 0.0; /**< The tempo; 0 if the host does not tell. */
    int numerator = 0, denominator = 0; /**< The time signature; 0 if the host does not tell. */

    /** Whether the host has told its position and its tempo, so that other samples' positions follow. */
    [[nodiscard]] bool isKnown() const noexcept { return quartersPerMinute > 0.0 && quarters > -1.0e300; }

    /** Quarter notes since the song's start at another sample, as long as the tempo stays. Without meaning if not
        isKnown(). The rate is in hertz. */
    [[nodiscard]] double getQuartersAt (std::int64_t sample, double sampleRate) const noexcept
    {
        return quarters + double (sample - position) * quartersPerMinute / (60.0 * sampleRate);
    }
};

} // namespace mk::orlo
