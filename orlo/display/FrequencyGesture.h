// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/explore/FrequencyZoom.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo
{

class AudioPluginAudioProcessor;

/** Moves Min Freq and Max Freq together, as one gesture for the host and one undo step for as long as the user keeps
    turning the wheel. [message thread] */
class FrequencyGesture final : private juce::Timer
{
public:
    /** The processor must outlive this. */
    explicit FrequencyGesture (AudioPluginAudioProcessor& processor);

    /** Finishes. */
    ~FrequencyGesture() override;

    /** The range that both parameters have. */
    [[nodiscard]] FrequencyRange getRange() const;

    /** The normalised values of both parameters. */
    struct Values
    {
        float min = 0.0f, max = 1.0f;
    };

    [[nodiscard]] Values getValues() const { return { minimum.getValue(), maximum.getValue() }; }

    /** Sets both, and begins a gesture if none is going on; it ends when nothing has come for some time. */
    void set (FrequencyRange range);
    void setValues (Values values);

    /** Ends the gesture at once, if one is going on. */
    void finish();

    [[nodiscard]] bool isGoingOn() const noexcept { return goingOn; }

private:
    void timerCallback() override { finish(); }

    AudioPluginAudioProcessor& processor;
    juce::RangedAudioParameter &minimum, &maximum;
    bool goingOn = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FrequencyGesture)
};

} // namespace mk::orlo
