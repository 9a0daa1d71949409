// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AxesLayout.h"

#include "orlo/analysis/FrequencyScale.h"
#include "orlo/stills/StillPicture.h"

namespace mk::orlo
{

/** The words of a picture, in the user's language. */
struct AxesWords
{
    juce::String time { "Time" }, frequency { "Frequency" }, level { "Level" };
};

/** What is drawn around a spectrogram, as shapes: no thread but the one that makes it needs the fonts. */
struct AxesDrawing
{
    ExportSettings settings;
    AxesLayout layout;
    juce::Colour paper, ink;
    juce::RectangleList<int> lines; /**< Frames and ticks. */
    juce::Path texts;
};

/** What the axes show. */
struct AxesRange
{
    double seconds = 0.0; /**< The length of the time axis, which starts at 0. */
    float minHz = 0.0f, maxHz = 0.0f;
    int scaleType = 0; /**< A FrequencyScale::Type. */
    float floorDb = -100.0f, ceilingDb = 0.0f;
};

/** The range of a request. Its size may differ from that of the picture. */
[[nodiscard]] AxesRange getAxesRange (const StillRequest& request, const StillColours& colours) noexcept;

/** Draws the axes. The spectrogram has to be made at the size of the layout's plot. [message thread]
    @param labels, title  the fonts, of any height */
[[nodiscard]] AxesDrawing drawAxes (const ExportSettings& settings,
                                    const AxesRange& range,
                                    const AxesWords& words,
                                    const juce::Font& labels,
                                    const juce::Font& title);

/** Paints some rows of the picture: the band, an image of the format RGB and of the picture's width, gets those from
    firstRow on. Any thread.
    @param still  of the size of the layout's plot */
void paintBand (const AxesDrawing& drawing,
                const StillPicture& still,
                const StillColours& colours,
                juce::Image& band,
                int firstRow);

} // namespace mk::orlo
