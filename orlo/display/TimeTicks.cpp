// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TimeTicks.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int mostTimeDecimals = 6;

/** The smallest 1, 2 or 5 times a power of ten that is not below a value. */
[[nodiscard]] double findRoundStep (double smallest)
{
    const auto power = std::pow (10.0, std::floor (std::log10 (smallest)));

    for (const auto digit : { 1.0, 2.0, 5.0 })
        if (digit * power >= smallest * (1.0 - 1.0e-9))
            return digit * power;

    return 10.0 * power;
}

/** Where a bar begins and how long bars and beats are, in quarter notes. */
struct Meter
{
    explicit Meter (const HostNote& note) noexcept
        : beat (note.denominator > 0 ? 4.0 / double (note.denominator) : 1.0),
          beatsInBar (note.numerator > 0 ? note.numerator : 4),
          bar (beat * double (beatsInBar)),
          // A host that does not tell where its bar began counts from the start of the song.
          barStart (std::isfinite (note.barStart) ? note.barStart : 0.0)
    {
    }

    /** At least so many quarter notes: a quarter of a beat, a beat, or a power of two of bars. */
    [[nodiscard]] double findStep (double smallest) const noexcept
    {
        if (smallest <= beat * 0.25)
            return beat * 0.25;

        if (smallest <= beat)
            return beat;

        auto step = bar;

        while (step < smallest)
            step *= 2.0;

        return step;
    }

    /** The name of a place that is a whole number of steps away from the start of the song's bar 1. */
    [[nodiscard]] juce::String format (double quarters, double step) const
    {
        const auto parts = std::llround ((quarters - barStart) / (beat * 0.25));
        const auto partsInBar = 4ll * beatsInBar;
        const auto barsBefore = std::llround (barStart / bar);
        const auto barIndex = juce::int64 (std::floor (double (parts) / double (partsInBar)));
        const auto inBar = int (parts - barIndex * partsInBar);
        auto text = juce::String (barsBefore + barIndex + 1);

        if (step < bar)
            text << "." << inBar / 4 + 1;

        if (step < beat)
            text << "." << inBar % 4 + 1;

        return text;
    }

    double beat;
    int beatsInBar;
    double bar, barStart;
};
} // namespace

juce::String formatSeconds (double seconds, double step)
{
    const auto decimals =
        step > 0.0 ? juce::jlimit (0, mostTimeDecimals, int (std::ceil (-std::log10 (step) - 1.0e-9))) : 0;

    // A zero has no sign.
    const auto value = std::abs (seconds) < step * 1.0e-3 ? 0.0 : seconds;
    return (decimals > 0 ? juce::String (value, decimals) : juce::String (juce::roundToInt (value))) + " s";
}

std::vector<TimeTick> makeSecondTicks (const TimeView& view, int width, int spacing)
{
    std::vector<TimeTick> ticks;

    if (width < 1 || spacing < 1 || ! (view.getLength() > 0.0))
        return ticks;

    const auto first = view.getSecondsAt (view.getStart());
    const auto last = view.getSecondsAt (view.getEnd());
    const auto step = findRoundStep ((last - first) * double (spacing) / double (width));

    for (auto index = std::ceil (first / step); index * step <= last; index += 1.0)
    {
        const auto seconds = index * step;
        ticks.push_back ({ (seconds - first) / (last - first), formatSeconds (seconds, step) });
    }

    return ticks;
}

std::vector<TimeTick> makeBarTicks (const TimeView& view, const std::vector<HostNote>& notes, int width, int spacing)
{
    std::vector<TimeTick> ticks;

    if (width < 1 || spacing < 1 || ! (view.getLength() > 0.0))
        return ticks;

    for (size_t i = 0; i < notes.size(); ++i)
    {
        const auto& note = notes[i];
        const auto begin = std::max (view.getStart(), double (note.position));
        const auto end =
            std::min (view.getEnd(), i + 1 < notes.size() ? double (notes[i + 1].position) : view.getSoundEnd());

        if (! note.isKnown() || begin >= end)
            continue;

        const Meter meter (note);
        const auto samplesPerQuarter = 60.0 * view.getSampleRate() / note.quartersPerMinute;
        const auto quartersAt = [&] (double sample)
        { return note.quarters + (sample - double (note.position)) / samplesPerQuarter; };

        const auto step = meter.findStep (double (spacing) * view.getLength() / (double (width) * samplesPerQuarter));
        const auto last = quartersAt (end);

        // Steps of several bars count from the song's start.
        const auto origin =
            step > meter.bar ? meter.barStart - std::round (meter.barStart / meter.bar) * meter.bar : meter.barStart;

        for (auto index = std::ceil ((quartersAt (begin) - origin) / step - 1.0e-9);; index += 1.0)
        {
            const auto quarters = origin + index * step;

            if (quarters >= last)
                break;

            const auto sample = double (note.position) + (quarters - note.quarters) * samplesPerQuarter;
            ticks.push_back ({ view.getShareOf (sample), meter.format (quarters, step) });
        }
    }

    return ticks;
}

} // namespace mk::orlo
