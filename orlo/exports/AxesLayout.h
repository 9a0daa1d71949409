// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** How an exported picture looks around the spectrogram. */
struct ExportSettings
{
    static constexpr int smallestSide = 64, largestWidth = 16384, largestHeight = 8192;

    int width = 1600, height = 1000; /**< Of the whole picture, pixels. */
    juce::String title;              /**< Drawn with the axes only. */
    bool hasAxes = true;
    bool isLight = true; /**< The paper. */
};

/** Where the parts of a picture with axes are, in pixels. */
struct AxesLayout
{
    float em = 0.0f;             /**< The height of a label's font. */
    int stroke = 1;              /**< The thickness of lines. */
    int tick = 0, minorTick = 0; /**< The lengths of ticks. */
    juce::Rectangle<int> plot;   /**< The spectrogram; the whole picture if there are no axes. */
    juce::Rectangle<int> bar;    /**< The colours. */
    float titleLine = 0.0f;      /**< The middle of the title. */
    float frequencyName = 0.0f, levelName = 0.0f, timeName = 0.0f; /**< The middles of the axes' names. */
};

/** The height of a label's font for a size. Any thread. */
[[nodiscard]] float getExportFontHeight (const ExportSettings& settings) noexcept;

/** Lays the picture out. All sizes follow that of the picture, so that it looks the same at every size. Any thread.

    @param frequencyWidth  of the widest label of the frequencies, in pixels at the height of getExportFontHeight()
    @param levelWidth      of the widest label of the levels */
[[nodiscard]] AxesLayout layOutAxes (const ExportSettings& settings, float frequencyWidth, float levelWidth) noexcept;

} // namespace mk::orlo
