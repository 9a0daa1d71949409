// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Signals.h"

#include <cmath>

namespace mk::orlo::test
{
namespace
{
constexpr auto twoPi = juce::MathConstants<double>::twoPi;

template <typename Function>
[[nodiscard]] Samples generate (int numSamples, double sampleRate, Function valueAt)
{
    Samples samples (static_cast<size_t> (numSamples));

    for (size_t i = 0; i < samples.size(); ++i)
        samples[i] = float (valueAt (double (i) / sampleRate));

    return samples;
}
} // namespace

Samples makeReferenceSignal (const juce::String& name, int numSamples, double sampleRate)
{
    if (name == "sine")
        return makeSine (1234.5, 0.5f, numSamples, sampleRate);

    if (name == "two_tones")
        return generate (numSamples,
                         sampleRate,
                         [] (double t)
                         { return 0.4 * std::sin (twoPi * 440.0 * t) + 0.2 * std::cos (twoPi * 5001.3 * t); });

    if (name == "chirp")
        return makeLinearChirp (200.0, 7800.0 / (double (numSamples) / sampleRate), 0.5f, numSamples, sampleRate);

    if (name == "clicks")
    {
        Samples samples (static_cast<size_t> (numSamples));

        for (size_t i = 997; i < samples.size(); i += 997)
            samples[i] = 0.9f;

        return samples;
    }

    jassert (name == "noise");
    juce::uint32 state = 1;

    return generate (numSamples,
                     sampleRate,
                     [&state] (double)
                     {
                         state = 1664525u * state + 1013904223u;
                         return (double (state) / 4294967296.0 - 0.5) / 2.0;
                     });
}

Samples makeSine (double hz, float amplitude, int numSamples, double sampleRate)
{
    return generate (numSamples, sampleRate, [=] (double t) { return double (amplitude) * std::sin (twoPi * hz * t); });
}

Samples makeLinearChirp (double startHz, double hzPerSecond, float amplitude, int numSamples, double sampleRate)
{
    return generate (numSamples,
                     sampleRate,
                     [=] (double t)
                     { return double (amplitude) * std::sin (twoPi * (startHz * t + hzPerSecond * t * t / 2.0)); });
}

Samples makeImpulse (int position, int numSamples)
{
    Samples samples (static_cast<size_t> (numSamples));
    samples[size_t (position)] = 1.0f;
    return samples;
}

Samples makeQuietNoise (int numSamples, juce::int64 seed)
{
    juce::Random random (seed);
    Samples samples (static_cast<size_t> (numSamples));

    for (auto& sample : samples)
        sample = 0.5f * random.nextFloat() - 0.25f;

    return samples;
}

} // namespace mk::orlo::test
