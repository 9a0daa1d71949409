// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Picture.h"

namespace mk::orlo::test
{

Picture::Picture (const juce::File& file) : Picture (juce::PNGImageFormat::loadFrom (file)) {}

Picture::Picture (juce::Image imageToAsk) : image (std::move (imageToAsk)) {}

Picture Picture::getPart (juce::Rectangle<int> bounds) const { return Picture (image.getClippedImage (bounds)); }

int Picture::getBrightness (int x, int y) const
{
    const auto colour = image.getPixelAt (x, y);
    return juce::jmax (colour.getRed(), colour.getGreen(), colour.getBlue());
}

int Picture::countPaintedColumns (int top, int bottom) const
{
    auto count = 0;

    for (int x = 0; x < getWidth(); ++x)
    {
        auto painted = false;

        for (int y = top; y < bottom && ! painted; ++y)
            painted = getBrightness (x, y) > 0;

        count += int (painted);
    }

    return count;
}

double Picture::getLineBrightness (int row, int reach, int left, int right) const
{
    auto sum = 0;

    for (int x = left; x < right; ++x)
    {
        auto brightest = 0;

        for (int y = row - reach; y <= row + reach; ++y)
            brightest = juce::jmax (brightest, getBrightness (x, y));

        sum += brightest;
    }

    return double (sum) / double (right - left);
}

std::set<juce::uint32> Picture::getColours() const
{
    std::set<juce::uint32> colours;

    for (int y = 0; y < getHeight(); ++y)
        for (int x = 0; x < getWidth(); ++x)
            colours.insert (image.getPixelAt (x, y).getARGB());

    return colours;
}

} // namespace mk::orlo::test
