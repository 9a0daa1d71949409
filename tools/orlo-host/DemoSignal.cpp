// SPDX-License-Identifier: AGPL-3.0-or-later
#include "DemoSignal.h"

#include <juce_dsp/juce_dsp.h>

#include <array>
#include <cmath>

namespace mk::orlo::host
{
namespace
{
constexpr auto twoPi = juce::MathConstants<double>::twoPi;
constexpr int noiseSeed = 20;

// A progression in just intonation.
constexpr std::array<double, demo::numBars> roots { 110.0, 137.5, 123.75, 146.66666666666666, 110.0 };

/** 0 up to 1 and back to 0 over the length, with raised-cosine slopes. */
[[nodiscard]] double fade (double t, double length, double rise, double fall) noexcept
{
    if (t <= 0.0 || t >= length)
        return 0.0;

    const auto slope = [] (double x) { return 0.5 - 0.5 * std::cos (juce::MathConstants<double>::pi * x); };
    return slope (juce::jmin (1.0, t / rise)) * slope (juce::jmin (1.0, (length - t) / fall));
}

/** Adds voices to the signal, each with its start time and its stereo position. */
class Mixer
{
public:
    Mixer (juce::AudioBuffer<float>& bufferToPaintOn, double rate) : buffer (bufferToPaintOn), sampleRate (rate) {}

    [[nodiscard]] double getNyquist() const noexcept { return sampleRate * 0.5; }
    [[nodiscard]] double getSampleRate() const noexcept { return sampleRate; }

    /** Adds valueAt (seconds since start). Start and length are in seconds; the pan is -1 (left) to 1 (right). */
    template <typename Function>
    void add (double start, double length, double pan, Function&& valueAt)
    {
        const auto left = float (std::sqrt (0.5 * (1.0 - pan)));
        const auto right = float (std::sqrt (0.5 * (1.0 + pan)));
        const auto first = juce::roundToInt (start * sampleRate);
        const auto last = juce::jmin (buffer.getNumSamples(), juce::roundToInt ((start + length) * sampleRate));

        for (int i = first; i < last; ++i)
        {
            const auto value = float (valueAt (double (i - first) / sampleRate));
            buffer.addSample (0, i, left * value);
            buffer.addSample (1, i, right * value);
        }
    }

    /** Adds a sine whose frequency in hertz and amplitude follow the time. Silent from Nyquist up. */
    template <typename Frequency, typename Amplitude>
    void addTone (double start, double length, double pan, Frequency&& frequencyAt, Amplitude&& amplitudeAt)
    {
        auto phase = 0.0;

        add (start,
             length,
             pan,
             [&] (double t)
             {
                 const auto hz = frequencyAt (t);
                 phase += hz / sampleRate;
                 phase -= std::floor (phase);
                 return hz < getNyquist() ? amplitudeAt (t) * std::sin (twoPi * phase) : 0.0;
             });
    }

private:
    juce::AudioBuffer<float>& buffer;
    const double sampleRate;
};

//==============================================================================
/** One note: the higher a harmonic is, the weaker it is and the faster it decays. */
void addNote (Mixer& mixer, double start, double length, double hz, double level, double pan)
{
    constexpr int numHarmonics = 9;

    for (int n = 1; n <= numHarmonics; ++n)
        mixer.addTone (
            start,
            length,
            pan,
            [hz, n] (double) { return hz * n; },
            [=] (double t)
            { return level / std::pow (n, 1.3) * std::exp (-0.28 * (n - 1) * t) * fade (t, length, 0.03, 0.3); });
}

void addChord (Mixer& mixer, double start, double root)
{
    constexpr double strum = 0.22;

    for (int note = 1; note <= 5; ++note)
    {
        const auto delay = strum * (note - 1);
        addNote (mixer,
                 start + delay,
                 demo::barSeconds - 0.1 - delay,
                 root * note,
                 note == 1 ? 0.12 : 0.09,
                 0.25 * (note - 3));
    }
}

/** An S-shaped sweep over seven octaves, up or down. */
void addChirp (Mixer& mixer, double start, bool upwards)
{
    constexpr double length = 2.7;
    constexpr double lowest = 140.0, octaves = 7.05;

    const auto frequencyAt = [upwards] (double t)
    {
        const auto x = upwards ? t / length : 1.0 - t / length;
        return lowest * std::exp2 (octaves * (x - std::sin (twoPi * x) / (1.6 * twoPi)));
    };

    mixer.addTone (start, length, 0.0, frequencyAt, [] (double t) { return 0.11 * fade (t, length, 0.08, 0.08); });
}

/** A held note whose vibrato grows. */
void addVibrato (Mixer& mixer, double start, double hz)
{
    constexpr double length = 2.3;
    constexpr double rate = 4.6, depthInOctaves = 0.14;

    const auto frequencyAt = [hz] (double t)
    {
        const auto depth = depthInOctaves * juce::jlimit (0.0, 1.0, (t - 0.35) / 0.9);
        return hz * std::exp2 (depth * std::sin (twoPi * rate * t));
    };

    for (int n = 1; n <= 3; ++n)
        mixer.addTone (
            start,
            length,
            0.3,
            [&, n] (double t) { return frequencyAt (t) * n; },
            [n] (double t) { return 0.07 / (n * n) * fade (t, length, 0.06, 0.4); });
}

/** Single samples: four beats, and a roll that quickens towards the end of the bar. */
void addClicks (Mixer& mixer, double start)
{
    const auto addClick = [&] (double time, double level)
    { mixer.add (start + time, 1.0 / mixer.getSampleRate(), 0.0, [level] (double) { return level; }); };

    for (int beat = 0; beat < 4; ++beat)
        addClick (0.12 + beat, 0.7);

    auto time = 3.45;

    for (auto gap = 0.11; gap > 0.03; gap *= 0.8)
    {
        addClick (time, 0.55);
        time += gap;
    }
}

/** White noise through a band-pass whose centre may move. */
class NoiseBand
{
public:
    NoiseBand (juce::Random& randomToUse, double rate, float resonance) : random (randomToUse), highest (0.45 * rate)
    {
        for (auto& stage : stages)
        {
            stage.prepare ({ rate, 1, 1 });
            stage.setType (juce::dsp::StateVariableTPTFilterType::bandpass);
            stage.setResonance (resonance);
        }
    }

    [[nodiscard]] double next (double centreHz)
    {
        auto value = random.nextFloat() * 2.0f - 1.0f;

        for (auto& stage : stages)
        {
            stage.setCutoffFrequency (float (juce::jmin (centreHz, highest)));
            value = stage.processSample (0, value);
        }

        return double (value);
    }

private:
    juce::Random& random;
    const double highest;
    std::array<juce::dsp::StateVariableTPTFilter<float>, 3> stages;
};

/** Short bursts of high noise on the off-beats, and a longer band of noise that rises in pitch and fades out. */
void addNoise (Mixer& mixer, double start, juce::Random& random)
{
    for (int beat = 0; beat < 4; ++beat)
    {
        NoiseBand band (random, mixer.getSampleRate(), 0.8f);
        mixer.add (start + 0.5 + beat,
                   0.3,
                   beat % 2 == 0 ? -0.4 : 0.4,
                   [&] (double t)
                   { return 0.25 * std::exp (-t / 0.035) * fade (t, 0.3, 0.002, 0.05) * band.next (9500.0); });
    }

    constexpr double length = 1.7;
    NoiseBand band (random, mixer.getSampleRate(), 5.0f);
    mixer.add (start + 2.1,
               length,
               0.0,
               [&] (double t)
               {
                   const auto x = t / length;
                   const auto centre = 3000.0 * std::exp2 (1.7 * std::sin (juce::MathConstants<double>::halfPi * x));
                   return 0.012 * fade (t, length, 1.2, 0.5) * band.next (centre);
               });
}
} // namespace

double demo::getRoot (int bar) noexcept { return roots[size_t (bar) % roots.size()]; }

juce::AudioBuffer<float> makeDemoSignal (double sampleRate)
{
    juce::AudioBuffer<float> buffer (2, juce::roundToInt (demo::seconds * sampleRate));
    buffer.clear();

    Mixer mixer (buffer, sampleRate);
    juce::Random random (noiseSeed);

    for (int bar = 0; bar < demo::numBars; ++bar)
    {
        const auto start = bar * demo::barSeconds;
        const auto root = demo::getRoot (bar);

        addChord (mixer, start, root);
        addChirp (mixer, start + 0.9, bar % 2 == 0);
        addVibrato (mixer, start + 1.3, root * 12.0);
        addClicks (mixer, start);
        addNoise (mixer, start, random);
    }

    return buffer;
}

} // namespace mk::orlo::host
