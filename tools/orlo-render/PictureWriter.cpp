// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureWriter.h"

#include "orlo/analysis/SpectrogramRing.h"

namespace mk::orlo::render
{

juce::Image paintPicture (const LevelGrid& levels, const ColourMap& map, bool inverted)
{
    const auto zeroColour = inverted ? map.getPixels().getLast() : SpectrogramRing::background;
    juce::Image picture (juce::Image::RGB, levels.getWidth(), levels.getHeight(), false, juce::SoftwareImageType());
    const juce::Image::BitmapData data (picture, juce::Image::BitmapData::writeOnly);

    // Levels lie in memory by column, pixels by row: in small tiles both stay in the cache.
    constexpr int tile = 32;

    for (int left = 0; left < data.width; left += tile)
        for (int y = 0; y < data.height; ++y)
            for (int x = left; x < juce::jmin (left + tile, data.width); ++x)
            {
                const auto level = levels.get (x, y);
                const juce::Colour colour (level <= 0.0f ? zeroColour : map.pixelForLevel (level));
                reinterpret_cast<juce::PixelRGB*> (data.getPixelPointer (x, y))->set (colour.getPixelARGB());
            }

    return picture;
}

void writePng (const juce::Image& picture, juce::OutputStream& stream)
{
    juce::PNGImageFormat().writeImageToStream (picture, stream);
}

} // namespace mk::orlo::render
