// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LoopedAudio.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

namespace mk::orlo
{
namespace
{
constexpr int maxChannels = 2;

[[nodiscard]] bool areSame (double a, double b) noexcept { return std::abs (a - b) < 1.0e-6; }

[[nodiscard]] juce::AudioBuffer<float> resample (const juce::AudioBuffer<float>& samples, double from, double to)
{
    const auto length = std::max (1, int (std::floor (double (samples.getNumSamples()) * to / from)));
    juce::AudioBuffer<float> result (samples.getNumChannels(), length);

    for (int channel = 0; channel < samples.getNumChannels(); ++channel)
    {
        juce::WindowedSincInterpolator interpolator;
        interpolator.process (from / to,
                              samples.getReadPointer (channel),
                              result.getWritePointer (channel),
                              length,
                              samples.getNumSamples(),
                              samples.getNumSamples());
    }

    return result;
}
} // namespace

LoopedAudio::LoopedAudio (juce::AudioBuffer<float> samples, double sampleRate)
    : original (std::move (samples)), originalRate (sampleRate)
{
    jassert (original.getNumSamples() > 0 && originalRate > 0.0);
}

std::unique_ptr<LoopedAudio> LoopedAudio::read (const juce::File& file, juce::String& error)
{
    const auto& path = file.getFullPathName();
    juce::AudioFormatManager formats;
    formats.registerBasicFormats();
    const std::unique_ptr<juce::AudioFormatReader> reader (file.existsAsFile() ? formats.createReaderFor (file)
                                                                               : nullptr);

    if (! file.existsAsFile())
        error = "there is no file " + path;
    else if (reader == nullptr || reader->sampleRate <= 0.0 || reader->numChannels < 1)
        error = path + " is no audio that can be read";
    else if (reader->lengthInSamples < 1)
        error = path + " holds no samples";
    else if (reader->lengthInSamples > std::numeric_limits<int>::max() / 4)
        error = path + " is too long";

    if (error.isNotEmpty())
        return nullptr;

    try
    {
        juce::AudioBuffer<float> samples (std::min (maxChannels, int (reader->numChannels)),
                                          int (reader->lengthInSamples));

        if (reader->read (&samples, 0, samples.getNumSamples(), 0, true, true))
            return std::make_unique<LoopedAudio> (std::move (samples), reader->sampleRate);

        error = path + " cannot be read";
    }
    catch (const std::bad_alloc&)
    {
        error = path + " does not fit into the memory";
    }

    return nullptr;
}

void LoopedAudio::prepare (double rate)
{
    isResampled = ! areSame (rate, originalRate);
    resampled = isResampled ? resample (original, originalRate, rate) : juce::AudioBuffer<float>();
    position = 0;
}

void LoopedAudio::fill (juce::AudioBuffer<float>& block) noexcept
{
    const auto& samples = isResampled ? resampled : original;

    for (int start = 0; start < block.getNumSamples();)
    {
        const auto count = std::min (block.getNumSamples() - start, samples.getNumSamples() - position);

        for (int channel = 0; channel < block.getNumChannels(); ++channel)
            juce::FloatVectorOperations::copy (
                block.getWritePointer (channel, start),
                samples.getReadPointer (std::min (channel, samples.getNumChannels() - 1), position),
                count);

        start += count;
        position = (position + count) % samples.getNumSamples();
    }
}

} // namespace mk::orlo
