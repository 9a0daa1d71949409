// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PngStream.h"

#include "orlo/stills/StillPicture.h"

namespace mk::orlo
{

/** What an export says about the program that made it. */
struct ExportOrigin
{
    juce::String title;      /**< Empty: none. */
    juce::String software;   /**< Name and version. */
    double soundStart = 0.0; /**< Seconds from the first kept sample to the request's sample 0. */
};

/** Settings and range of a picture for those who read files, not translated: "FFT size", "2048", ... */
[[nodiscard]] TextEntries
    describe (const StillRequest& request, const StillColours& colours, const ExportOrigin& origin);

/** The same, and what the axes of an array of levels mean, as JSON. */
[[nodiscard]] juce::String
    describeLevels (const StillRequest& request, const StillColours& colours, const ExportOrigin& origin);

} // namespace mk::orlo
