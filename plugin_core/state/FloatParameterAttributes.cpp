// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FloatParameterAttributes.h"

namespace mk::pluginCore
{

juce::AudioParameterFloatAttributes getFloatParameterAttributesWithNDecimals (int n)
{
    return juce::AudioParameterFloatAttributes()
        .withStringFromValueFunction (
            [n] (float value, int maximumLength)
            {
                if (n == 0)
                    return juce::String (juce::roundToInt (value));

                return juce::String (value, maximumLength > 0 ? juce::jmin (n, maximumLength) : n);
            })
        .withValueFromStringFunction ([] (const juce::String& text) { return text.getFloatValue(); });
}

} // namespace mk::pluginCore
