// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureExport.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
constexpr int rowsOfABand = 128;

[[nodiscard]] juce::Image makeBand (int width, int height)
{
    return { juce::Image::RGB, width, height, false, juce::SoftwareImageType() };
}
} // namespace

void writePicture (const AxesDrawing& drawing,
                   const StillPicture& still,
                   const StillColours& colours,
                   const TextEntries& texts,
                   juce::OutputStream& stream)
{
    const auto& settings = drawing.settings;
    PngStream png (stream, settings.width, settings.height, texts);
    auto band = makeBand (settings.width, rowsOfABand);

    for (int y = 0; y < settings.height; y += rowsOfABand)
    {
        paintBand (drawing, still, colours, band, y);
        png.writeRows (band, std::min (rowsOfABand, settings.height - y));
    }

    png.finish();
}

juce::Image makeImage (const AxesDrawing& drawing, const StillPicture& still, const StillColours& colours)
{
    auto image = makeBand (drawing.settings.width, drawing.settings.height);
    paintBand (drawing, still, colours, image, 0);
    return image;
}

} // namespace mk::orlo
