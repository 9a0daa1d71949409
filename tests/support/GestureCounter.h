// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::test
{

/** Counts the notifications that the host receives for all parameters. [message thread] */
class GestureCounter final : private juce::AudioProcessorListener
{
public:
    explicit GestureCounter (juce::AudioProcessor& processorToHear) : processor (processorToHear)
    {
        processor.addListener (this);
    }

    ~GestureCounter() override { processor.removeListener (this); }

    int numChanges = 0, numBegun = 0, numEnded = 0;

private:
    void audioProcessorParameterChanged (juce::AudioProcessor*, int, float) override { ++numChanges; }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int) override { ++numBegun; }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int) override { ++numEnded; }

    juce::AudioProcessor& processor;

    JUCE_DECLARE_NON_COPYABLE (GestureCounter)
};

} // namespace mk::orlo::test
