// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <vector>

namespace mk::orlo::test
{

using Samples = std::vector<float>;

/** The signals that the reference vectors were made from: sine, two_tones, chirp, clicks or noise. */
[[nodiscard]] Samples makeReferenceSignal (const juce::String& name, int numSamples, double sampleRate);

[[nodiscard]] Samples makeSine (double hz, float amplitude, int numSamples, double sampleRate);

/** Sweeps from startHz by hzPerSecond. */
[[nodiscard]] Samples
    makeLinearChirp (double startHz, double hzPerSecond, float amplitude, int numSamples, double sampleRate);

/** Zeros with a one at the given place. */
[[nodiscard]] Samples makeImpulse (int position, int numSamples);

/** Noise of a quarter of full scale, the same for the same seed. */
[[nodiscard]] Samples makeQuietNoise (int numSamples, juce::int64 seed = 1);

} // namespace mk::orlo::test
