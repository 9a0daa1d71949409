// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ExploredPainter.h"

#include <cmath>

namespace mk::orlo
{

bool paintExplored (juce::Graphics& g, const Explorer& explorer, juce::Rectangle<int> view)
{
    const auto& image = explorer.getImage();

    if (! image.isValid() || view.isEmpty())
        return false;

    constexpr auto wholeUnits = 0.01; // what is nearer than that to whole units is on them
    const auto& request = explorer.getPicture()->getRequest();
    const auto& times = explorer.getTimeView();
    const auto width = double (view.getWidth());
    const auto left = times.getShareOf (request.start) * width;
    const auto right = times.getShareOf (request.start + request.length) * width;
    const auto isInPlace = std::abs (left) < wholeUnits && std::abs (right - width) < wholeUnits;

    if (isInPlace && image.getWidth() == view.getWidth() && image.getHeight() == view.getHeight())
    {
        g.drawImageAt (image, view.getX(), view.getY());
        return true;
    }

    if (! isInPlace)
    {
        g.setColour (juce::Colours::black);
        g.fillRect (view);
    }

    const auto scaleX = float ((right - left) / double (image.getWidth()));
    const auto scaleY = float (view.getHeight()) / float (image.getHeight());
    g.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
    g.drawImageTransformed (image,
                            juce::AffineTransform::scale (scaleX, scaleY)
                                .translated (float (left) + float (view.getX()), float (view.getY())));
    return true;
}

} // namespace mk::orlo
