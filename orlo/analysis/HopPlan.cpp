// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HopPlan.h"

#include <juce_core/juce_core.h>

#include <cmath>

namespace mk::orlo
{
namespace
{
// A column lasts from 2.5 ms at full speed to 16 ms; the exponent puts the default speed near 3.7 ms.
constexpr float shortestColumnMs = 2.5f;
constexpr float columnMsRange = 13.5f;
constexpr float speedSkew = 0.21030991f;
constexpr int smallestEnhancedHop = 64;

[[nodiscard]] float columnMilliseconds (float speed) noexcept
{
    auto slowness = juce::jlimit (0.0f, 1.0f, 1.0f - speed / 100.0f);

    if (slowness > 0.0f)
        slowness = std::exp (std::log (slowness) / speedSkew);

    return shortestColumnMs + columnMsRange * slowness;
}

/** The power of two nearest to a positive value; of two equally near, the higher one. */
[[nodiscard]] int nearestPowerOfTwo (int value) noexcept
{
    const auto above = juce::nextPowerOfTwo (value);
    const auto below = above / 2;
    return value - below < above - value ? below : above;
}

[[nodiscard]] int enhancedHop (int windowSize, int samplesPerColumn, bool doubleResolution) noexcept
{
    const auto overlap = doubleResolution ? 16 : 8;
    const auto wanted = juce::jmax (smallestEnhancedHop, (windowSize - 1) / overlap);

    // For a column shorter than the overlap factor the hop would start at 0, and doubling would never end.
    auto hop = juce::jmax (1, samplesPerColumn / overlap);

    while (nearestPowerOfTwo (hop) < wanted)
        hop *= 2;

    return juce::jmin (samplesPerColumn, hop);
}
} // namespace

HopPlan planHop (const HopSettings& settings) noexcept
{
    auto milliseconds = columnMilliseconds (settings.speed);

    if (settings.doubleResolution)
        milliseconds *= 0.5f;

    HopPlan plan;
    plan.secondsPerColumn = milliseconds / 1000.0f;
    plan.samplesPerColumn = juce::roundToInt (settings.sampleRate * double (plan.secondsPerColumn));
    plan.samplesPerFrame = settings.enhanced
                               ? enhancedHop (settings.windowSize, plan.samplesPerColumn, settings.doubleResolution)
                               : plan.samplesPerColumn;

    if (plan.samplesPerFrame >= 1)
        plan.framesPerColumn =
            juce::jmax (1, juce::roundToInt (float (plan.samplesPerColumn) / float (plan.samplesPerFrame)));

    return plan;
}

} // namespace mk::orlo
