// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ExportDescription.h"

#include "AxesDrawing.h"

#include "orlo/analysis/FrequencyScale.h"
#include "orlo/parameters/ColourMapNames.h"
#include "orlo/stills/StillPoints.h"
#include "orlo/stills/StillScales.h"

#include <array>

namespace mk::orlo
{
namespace
{
constexpr std::array<const char*, FrequencyScale::numTypes> scaleNames { "Linear", "Log", "Mel", "Bark", "ERB" };

[[nodiscard]] juce::String getScaleName (int type)
{
    return juce::isPositiveAndBelow (type, int (scaleNames.size())) ? scaleNames[size_t (type)] : "";
}

[[nodiscard]] juce::String getMapName (const StillColours& colours)
{
    const auto index = colours.map != nullptr ? size_t (colours.map->getMapIndex()) : colourMapNames.size();
    return index < colourMapNames.size() ? colourMapNames[index] : "";
}

[[nodiscard]] juce::String withUnit (double value, int decimals, const char* unit)
{
    return juce::String (value, decimals) + " " + unit;
}

[[nodiscard]] juce::var makeAxis (const char* name, const char* unit, juce::Array<juce::var> values)
{
    auto* const axis = new juce::DynamicObject;
    juce::var result (axis);
    axis->setProperty ("name", name);
    axis->setProperty ("unit", unit);
    axis->setProperty ("values", std::move (values));
    return result;
}
} // namespace

TextEntries describe (const StillRequest& request, const StillColours& colours, const ExportOrigin& origin)
{
    const auto rate = request.hop.sampleRate;
    const auto range = getAxesRange (request, colours);
    TextEntries entries;

    if (origin.title.isNotEmpty())
        entries.emplace_back ("Title", origin.title);

    entries.insert (entries.end(),
                    { { "Software", origin.software },
                      { "Start", withUnit (request.start / rate + origin.soundStart, 6, "s") },
                      { "Length", withUnit (request.length / rate, 6, "s") },
                      { "Sample rate", withUnit (rate, 0, "Hz") },
                      { "Mode", request.hop.enhanced ? "Enhanced" : "Classic" },
                      { "FFT size", juce::String (request.hop.windowSize) },
                      { "Speed", juce::String (request.hop.speed, 1) },
                      { "Scale", getScaleName (request.scaleType) },
                      { "Min frequency", withUnit (double (range.minHz), 2, "Hz") },
                      { "Max frequency", withUnit (double (range.maxHz), 2, "Hz") },
                      { "Floor", withUnit (double (colours.floorDb), 1, "dB") },
                      { "Ceiling", withUnit (double (colours.ceilingDb), 1, "dB") },
                      { "Colour map", getMapName (colours) } });
    return entries;
}

juce::String describeLevels (const StillRequest& request, const StillColours& colours, const ExportOrigin& origin)
{
    const auto scale = makeStillScale (request);
    juce::Array<juce::var> frequencies, times;

    for (int y = 0; y < request.height; ++y)
        frequencies.add (getFrequencyOfRow (*scale, double (y), request.height));

    for (int x = 0; x < request.width; ++x)
        times.add ((double (x) + 0.5) * request.getSamplesPerPixel() / request.hop.sampleRate);

    auto* const settings = new juce::DynamicObject;
    const juce::var settingsValue (settings);

    for (const auto& [name, value] : describe (request, colours, origin))
        settings->setProperty (name, value);

    auto* const description = new juce::DynamicObject;
    const juce::var value (description);
    description->setProperty ("quantity", "level");
    description->setProperty ("unit", "dB");
    description->setProperty ("axes",
                              juce::Array<juce::var> { makeAxis ("frequency", "Hz", std::move (frequencies)),
                                                       makeAxis ("time", "s", std::move (times)) });
    description->setProperty ("settings", settingsValue);
    return juce::JSON::toString (value);
}

} // namespace mk::orlo
