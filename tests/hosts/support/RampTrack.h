// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tools/orlo-host/Track.h"

namespace mk::orlo::test
{

/** A track in which each sample's value tells its position: up to 1 on the left, down to -1 on the right. */
struct RampTrack
{
    static constexpr int length = 1000;
    static constexpr double sampleRate = 48000.0;

    [[nodiscard]] static host::Track make()
    {
        juce::AudioBuffer<float> ramp (2, length);

        for (int i = 0; i < length; ++i)
        {
            ramp.setSample (0, i, float (i) / length);
            ramp.setSample (1, i, -float (i) / length);
        }

        return { "ramp", sampleRate, length, false, std::make_unique<juce::MemoryAudioSource> (ramp, true, true) };
    }
};

} // namespace mk::orlo::test
