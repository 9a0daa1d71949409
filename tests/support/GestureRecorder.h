// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <string>

namespace mk::orlo::test
{

/** What a host is told about one parameter: "[" for the start of a gesture, "]" for its end, "." for a value.
    [message thread] */
class GestureRecorder final : private juce::AudioProcessorParameter::Listener
{
public:
    explicit GestureRecorder (juce::AudioProcessorParameter& parameterToHear) : parameter (parameterToHear)
    {
        parameter.addListener (this);
    }

    ~GestureRecorder() override { parameter.removeListener (this); }

    /** What has been recorded since the last call. */
    [[nodiscard]] std::string take() { return std::exchange (heard, {}); }

private:
    void parameterValueChanged (int, float) override { heard += '.'; }
    void parameterGestureChanged (int, bool isStarting) override { heard += isStarting ? '[' : ']'; }

    juce::AudioProcessorParameter& parameter;
    std::string heard;

    JUCE_DECLARE_NON_COPYABLE (GestureRecorder)
};

} // namespace mk::orlo::test
