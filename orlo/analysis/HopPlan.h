// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo
{

/** The settings that decide how far the analysis advances from frame to frame. */
struct HopSettings
{
    int windowSize = 2048;       /**< The window size as shown to the user, 256 .. 8192; 0 if none. */
    double sampleRate = 44100.0; /**< Hertz. */
    float speed = 40.0f;         /**< Percent, 0 (slow) .. 100 (fast). */
    bool doubleResolution = false;
    bool enhanced = true;
};

/** How the samples are distributed over image columns. */
struct HopPlan
{
    float secondsPerColumn = 0.0f;
    int samplesPerColumn = 0;
    int samplesPerFrame = 0; /**< Samples from one frame to the next; below 1 there is no analysis. */
    int framesPerColumn = 1;
};

/** Works out the hop from the settings. Any thread, no allocation.

    Classic shows one frame a column. Reassignment needs windows that overlap by about seven eighths
    (fifteen sixteenths at double resolution), so Enhanced may take several frames a column.
*/
[[nodiscard]] HopPlan planHop (const HopSettings& settings) noexcept;

} // namespace mk::orlo
