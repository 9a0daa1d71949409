// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AxisTicks.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
/** The distances of the ticks of an axis. */
struct Steps
{
    double labelled; // 1, 2 or 5 times a power of ten
    int between;     // steps without a label in each labelled one
    int decimals;    // that the labels need
};

[[nodiscard]] Steps chooseSteps (double span, int mostLabels) noexcept
{
    const auto smallest = span / double (std::max (1, mostLabels));
    const auto exponent = int (std::floor (std::log10 (smallest)));
    const auto power = std::pow (10.0, exponent);
    const auto decimals = std::max (0, -exponent);

    if (smallest <= power)
        return { power, 5, decimals };

    if (smallest <= 2.0 * power)
        return { 2.0 * power, 4, decimals };

    if (smallest <= 5.0 * power)
        return { 5.0 * power, 5, decimals };

    return { 10.0 * power, 5, std::max (0, -exponent - 1) };
}

[[nodiscard]] juce::String formatTick (double value, int decimals)
{
    const auto text = juce::String (value, decimals);
    return text.containsAnyOf ("123456789") ? text : text.trimCharactersAtStart ("-");
}

/** Without the zeros at its end, in hertz or kilohertz. */
[[nodiscard]] juce::String formatFrequency (double hertz)
{
    const auto isKilo = hertz >= 1000.0;
    auto text = juce::String (isKilo ? hertz / 1000.0 : hertz, 3).trimCharactersAtEnd ("0").trimCharactersAtEnd (".");
    return (text.isEmpty() ? juce::String ("0") : text) + (isKilo ? "k" : "");
}

/** Calls a function with each multiple of a step in a range, and whether it is one of every so many. */
template <typename Function>
void forEachMultiple (double low, double high, const Steps& steps, Function&& function)
{
    const auto step = steps.labelled / double (steps.between);
    const auto slack = 1.0e-6; // sums of parts of steps are not exact
    const auto last = std::int64_t (std::floor (high / step + slack));

    for (auto i = std::int64_t (std::ceil (low / step - slack)); i <= last; ++i)
        function (double (i) * step, i % steps.between == 0);
}

[[nodiscard]] std::vector<AxisTick> makeEvenFrequencyTicks (const FrequencyScale& scale, int mostLabels)
{
    std::vector<AxisTick> ticks;
    const auto low = double (scale.getMinFrequency());
    const auto high = double (scale.getMaxFrequency());

    forEachMultiple (low,
                     high,
                     chooseSteps (high - low, mostLabels),
                     [&] (double hertz, bool isLabelled)
                     {
                         ticks.push_back ({ scale.positionForFrequency (float (hertz)),
                                            isLabelled ? formatFrequency (hertz) : juce::String() });
                     });
    return ticks;
}

/** The ticks of whole decades, of which those that come first in the order of digits get the labels. */
[[nodiscard]] std::vector<AxisTick> makeDecadeTicks (const FrequencyScale& scale, float labelHeight)
{
    std::vector<AxisTick> ticks;
    const auto low = double (scale.getMinFrequency());
    const auto high = double (scale.getMaxFrequency());
    const auto firstDecade = int (std::floor (std::log10 (std::max (low, 10.0))));
    const auto lastDecade = int (std::ceil (std::log10 (high)));

    const auto isFree = [&] (float position, float room, bool isLabelled)
    {
        return std::ranges::none_of (ticks,
                                     [&] (const AxisTick& tick) {
                                         return (! isLabelled || tick.text.isNotEmpty())
                                                && std::abs (tick.position - position) < room;
                                     });
    };

    // No power of ten is the axis's start then.
    if (low < 1.0)
        ticks.push_back ({ 0.0f, "0" });

    for (const auto digit : { 1, 5, 2, 3, 4, 6, 7, 8, 9 })
        for (int decade = firstDecade; decade <= lastDecade; ++decade)
        {
            const auto hertz = double (digit) * std::pow (10.0, decade);

            if (hertz < low || hertz > high)
                continue;

            const auto position = scale.positionForFrequency (float (hertz));
            const auto isLabelled = (digit == 1 || digit == 2 || digit == 5) && isFree (position, labelHeight, true);

            // A tick so near to another one would blur with it.
            if (isLabelled || isFree (position, 0.2f * labelHeight, false))
                ticks.push_back ({ position, isLabelled ? formatFrequency (hertz) : juce::String() });
        }

    std::ranges::sort (ticks, {}, &AxisTick::position);
    return ticks;
}
} // namespace

std::vector<AxisTick> makeEvenTicks (double start, double end, int mostLabels)
{
    std::vector<AxisTick> ticks;
    const auto low = std::min (start, end);
    const auto high = std::max (start, end);

    if (! (low < high))
        return ticks;

    const auto steps = chooseSteps (high - low, mostLabels);
    forEachMultiple (low,
                     high,
                     steps,
                     [&] (double value, bool isLabelled)
                     {
                         ticks.push_back ({ float ((value - start) / (end - start)),
                                            isLabelled ? formatTick (value, steps.decimals) : juce::String() });
                     });
    return ticks;
}

std::vector<AxisTick> makeFrequencyTicks (const FrequencyScale& scale, float labelHeight)
{
    const auto low = scale.getMinFrequency();
    const auto high = scale.getMaxFrequency();

    if (! (low < high))
        return {};

    constexpr auto leastLabels = 4;
    const auto mostLabels = std::max (2, int (0.5f / labelHeight));

    if (scale.getScaleType() != FrequencyScale::linear)
    {
        auto ticks = makeDecadeTicks (scale, labelHeight);

        if (std::ranges::count_if (ticks, [] (const AxisTick& tick) { return tick.text.isNotEmpty(); }) >= leastLabels)
            return ticks;
    }

    return makeEvenFrequencyTicks (scale, mostLabels);
}

} // namespace mk::orlo
