// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <map>
#include <memory>
#include <vector>

namespace mk::orlo::render
{

/** The plug-in's own parameters, set from texts of a command line instead of by a host.

    Ranges, choices and texts come from the plug-in's parameters. The plug-in turns a wrong text into some legal
    value, which the user would not notice here, so such a text is an error. */
class ParameterValues
{
public:
    /** All parameters at their defaults. */
    ParameterValues();

    [[nodiscard]] bool contains (const juce::String& id) const { return find (id) != nullptr; }

    /** Sets a parameter from its text, with or without its unit. The frequency limits take percent of half
        the sample rate, or hertz, as in "200Hz". Throws RenderError, which names the id, for an unknown
        choice, for a text that is not a number and for a number out of range.
        @param id  one that contains() knows */
    void set (const juce::String& id, const juce::String& text);

    /** A parameter's value in its own unit; the index of a choice. */
    [[nodiscard]] float get (const juce::String& id) const;

    /** A frequency limit as a share 0 .. 1 of half the sample rate. Throws RenderError if it was given in
        hertz and lies above that. */
    [[nodiscard]] float getFrequencyFraction (const juce::String& id, double sampleRate) const;

    /** One line for each parameter: its id, the values that it accepts and its default. */
    [[nodiscard]] juce::StringArray describe() const;

private:
    [[nodiscard]] juce::RangedAudioParameter* find (const juce::String& id) const;

    std::vector<std::unique_ptr<juce::RangedAudioParameter>> parameters;
    std::map<juce::String, double> hertz; // the frequency limits that were given in hertz, by id
};

} // namespace mk::orlo::render
