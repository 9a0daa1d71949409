// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <utility>

namespace mk::orlo::test
{

/** Calls a function at each change of a parameter, on the thread that changes it, as a host's listener is called. */
class OnParameterChange final : private juce::AudioProcessorParameter::Listener
{
public:
    OnParameterChange (juce::AudioProcessorParameter& parameterToHear, std::function<void()> functionToCall)
        : parameter (parameterToHear), function (std::move (functionToCall))
    {
        parameter.addListener (this);
    }

    ~OnParameterChange() override { parameter.removeListener (this); }

private:
    void parameterValueChanged (int, float) override { function(); }
    void parameterGestureChanged (int, bool) override {}

    juce::AudioProcessorParameter& parameter;
    const std::function<void()> function;

    JUCE_DECLARE_NON_COPYABLE (OnParameterChange)
};

} // namespace mk::orlo::test
