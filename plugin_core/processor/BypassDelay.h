// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_dsp/juce_dsp.h>

namespace mk::pluginCore
{

/** Delays the audio by the plug-in's own latency while it is bypassed, so that the host's delay
    compensation stays right. */
class BypassDelay
{
public:
    /** [host or message thread, while no audio runs] Makes room for the latency in samples and clears
        the line. Allocates. */
    void prepare (const juce::dsp::ProcessSpec& spec, int latency);

    /** [audio thread] Delays every channel in place by the latency in samples, clamped to the prepared
        maximum. A latency of 0 leaves the buffer unchanged. */
    void process (juce::AudioBuffer<float>& buffer, int latency) noexcept;

private:
    using Line = juce::dsp::DelayLine<float, juce::dsp::DelayLineInterpolationTypes::None>;

    static constexpr int smallestDelay = 2;
    static constexpr int margin = 2;

    Line line { smallestDelay + margin };
    int numChannels = 0;
};

} // namespace mk::pluginCore
