// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PointText.h"

#include "Readout.h"

#include "orlo/analysis/Decibels.h"

#include <array>
#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int fewestDecimals = 3, mostDecimals = 6;
constexpr int semitonesPerOctave = 12;
constexpr double centsPerOctave = 1200.0;

// Points below that are no pitches: the logarithm of nearly nothing would be a number without meaning.
constexpr double lowestPitch = 1.0;

constexpr std::array<const char*, semitonesPerOctave> intervals { "unison",      "minor second",  "major second",
                                                                  "minor third", "major third",   "perfect fourth",
                                                                  "tritone",     "perfect fifth", "minor sixth",
                                                                  "major sixth", "minor seventh", "major seventh" };

// The columns of the text are two spaces apart.
const auto* const gap = "  ";

/** The number with its sign, also where it is 0; "-0.0" would be a difference of nothing. */
[[nodiscard]] juce::String formatSigned (double value, int decimals)
{
    const auto digits = juce::String (std::abs (value), decimals);
    const auto isNegative = value < 0.0 && digits.containsAnyOf ("123456789");
    return (isNegative ? "-" : "+") + digits;
}

[[nodiscard]] juce::String formatSigned (int value)
{
    return (value < 0 ? "-" : "+") + juce::String (std::abs (value));
}

[[nodiscard]] juce::String formatCents (int cents) { return formatSigned (cents) + juce::translate ("cents"); }

[[nodiscard]] bool isSound (float decibels) noexcept { return decibels > silenceDb; }

[[nodiscard]] juce::String formatLevel (float decibels)
{
    // A minus sign and infinity.
    return isSound (decibels) ? juce::String (decibels, 1) + "dB"
                              : juce::String::fromUTF8 ("-\xe2\x88\x9e"
                                                        "dB");
}

[[nodiscard]] juce::String formatInterval (double from, double to)
{
    const auto cents = int (std::round (std::log2 (to / from) * centsPerOctave));
    const auto semitones = int (std::round (double (cents) / 100.0));
    const auto rest = cents - 100 * semitones;
    return formatCents (cents) + " (" + getIntervalName (semitones) + (rest != 0 ? " " + formatCents (rest) : "") + ")";
}
} // namespace

int getTimeDecimals (double secondsPerPixel) noexcept
{
    auto decimals = fewestDecimals;

    for (auto resolution = 1.0e-3; decimals < mostDecimals && secondsPerPixel < resolution; resolution *= 0.1)
        ++decimals;

    return decimals;
}

juce::String formatPoint (const MeasuredPoint& point, const notes::Tuning& tuning, int timeDecimals)
{
    const auto seconds = formatSigned (juce::jmin (point.seconds, 0.0), timeDecimals).trimCharactersAtStart ("+");
    return formatReadout (point.hertz, tuning).trimEnd() + gap + formatLevel (point.decibels) + gap + seconds + "s";
}

juce::String formatDifference (const MeasuredPoint& first, const MeasuredPoint& second, int timeDecimals)
{
    auto text = formatSigned (second.seconds - first.seconds, timeDecimals) + "s" + gap
                + formatSigned (second.hertz - first.hertz, 2) + juce::translate ("Hz");

    if (first.hertz >= lowestPitch && second.hertz >= lowestPitch)
        text << gap << formatInterval (first.hertz, second.hertz);

    if (isSound (first.decibels) && isSound (second.decibels))
        text << gap << formatSigned (double (second.decibels) - double (first.decibels), 1) << "dB";

    return text;
}

juce::String getIntervalName (int semitones)
{
    const auto size = std::abs (semitones);
    const auto octaves = size / semitonesPerOctave;
    const auto rest = size % semitonesPerOctave;
    auto name = juce::translate (intervals[size_t (rest)]);

    if (octaves == 0)
        return name;

    const auto whole =
        octaves == 1 ? juce::translate ("octave") : juce::String (octaves) + " " + juce::translate ("octaves");
    return rest == 0 ? whole : whole + " + " + name;
}

} // namespace mk::orlo
