// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrequencyText.h"

#include <algorithm>

namespace mk::orlo::frequencyText
{
namespace
{
// Higher frequencies are typing errors, and enough digits would give infinity, so the value is limited.
constexpr double highestTyped = 1.0e9;
} // namespace

juce::String fromPercent (double percent, double sampleRate)
{
    const auto hertz = percent * double (0.01f) * double (0.5f) * std::max (sampleRate, 0.0);
    return juce::String (juce::roundToInt (hertz)) + " " + juce::translate ("Hz");
}

double toPercent (const juce::String& text, double sampleRate)
{
    if (sampleRate <= 0.0)
        return 0.0;

    const auto inKilohertz = text.containsAnyOf ("kK");
    const auto number = inKilohertz ? text.replaceCharacter (',', '.') : text;
    const auto typed = number.retainCharacters ("0123456789.").getDoubleValue();
    const auto hertz = std::min (inKilohertz ? typed * 1000.0 : typed, highestTyped);
    return hertz / (sampleRate * 0.5) * 100.0;
}

} // namespace mk::orlo::frequencyText
