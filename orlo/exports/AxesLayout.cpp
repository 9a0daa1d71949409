// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AxesLayout.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{

float getExportFontHeight (const ExportSettings& settings) noexcept
{
    // A share of the picture's size, but never so large that little is left for the spectrogram.
    const auto width = float (settings.width);
    const auto height = float (settings.height);
    return std::max (8.0f, std::min ({ std::sqrt (width * height) / 60.0f, width / 32.0f, height / 18.0f }));
}

AxesLayout layOutAxes (const ExportSettings& settings, float frequencyWidth, float levelWidth) noexcept
{
    AxesLayout layout;
    const juce::Rectangle<int> picture (settings.width, settings.height);

    if (! settings.hasAxes)
    {
        layout.plot = picture;
        return layout;
    }

    const auto em = getExportFontHeight (settings);
    layout.em = em;
    layout.stroke = std::max (1, juce::roundToInt (em / 14.0f));
    layout.tick = juce::roundToInt (0.45f * em);
    layout.minorTick = juce::roundToInt (0.25f * em);

    const auto margin = 0.9f * em;
    const auto gap = 0.35f * em; // between a tick and its label
    const auto name = 1.1f * em;
    const auto hasTitle = settings.title.trim().isNotEmpty();
    const auto ticks = float (layout.tick + layout.stroke);

    const auto left = margin + name + 0.55f * em + frequencyWidth + gap + ticks;
    const auto right = margin + name + 0.55f * em + levelWidth + gap + ticks;
    const auto top = hasTitle ? margin + 1.5f * em + 0.9f * em : 1.4f * em;
    const auto bottom = ticks + gap + em + 0.45f * em + name + margin;
    const auto barWidth = std::max (1, juce::roundToInt (1.1f * em));
    const auto barGap = juce::roundToInt (1.2f * em);

    auto area = picture.withTrimmedLeft (juce::roundToInt (left))
                    .withTrimmedTop (juce::roundToInt (top))
                    .withTrimmedRight (juce::roundToInt (right))
                    .withTrimmedBottom (juce::roundToInt (bottom));
    layout.bar = area.removeFromRight (barWidth);
    area.removeFromRight (barGap);
    layout.plot = area.withSize (std::max (1, area.getWidth()), std::max (1, area.getHeight()));

    layout.titleLine = margin + 0.75f * em;
    layout.frequencyName = margin + 0.5f * name;
    layout.levelName = float (settings.width) - margin - 0.5f * name;
    layout.timeName = float (settings.height) - margin - 0.5f * name;
    return layout;
}

} // namespace mk::orlo
