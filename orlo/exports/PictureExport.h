// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AxesDrawing.h"
#include "ExportDescription.h"

namespace mk::orlo
{

/** Writes the picture with its axes as a PNG, some rows at a time, and the texts beside it. Failed writes are reported by
    the stream only. Throws std::bad_alloc. Any thread. */
void writePicture (const AxesDrawing& drawing,
                   const StillPicture& still,
                   const StillColours& colours,
                   const TextEntries& texts,
                   juce::OutputStream& stream);

/** The same as an image, for small pictures. Any thread. */
[[nodiscard]] juce::Image
    makeImage (const AxesDrawing& drawing, const StillPicture& still, const StillColours& colours);

} // namespace mk::orlo
