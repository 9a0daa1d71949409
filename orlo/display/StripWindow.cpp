// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StripWindow.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr double stripEdgeWidth = 5.0; // pixels on either side
constexpr double narrowestWindow = 4.0;
} // namespace

double StripWindow::getSamplesPerPixel() const noexcept
{
    return std::max (1.0, view.getSoundEnd() - view.getSoundStart()) / double (width);
}

double StripWindow::getPixel (double sample) const noexcept
{
    return std::clamp ((sample - view.getSoundStart()) / getSamplesPerPixel(), 0.0, double (width));
}

double StripWindow::getSampleAt (double x) const noexcept { return view.getSoundStart() + x * getSamplesPerPixel(); }

double StripWindow::getLeft() const noexcept
{
    const auto left = getPixel (view.getStart()), right = getPixel (view.getEnd());
    return right - left >= narrowestWindow
               ? left
               : std::clamp ((left + right - narrowestWindow) * 0.5, 0.0, std::max (0.0, width - narrowestWindow));
}

double StripWindow::getRight() const noexcept
{
    return std::max (getPixel (view.getEnd()), std::min (double (width), getLeft() + narrowestWindow));
}

StripWindow::Part StripWindow::findPart (double x) const noexcept
{
    const auto left = getLeft(), right = getRight();

    // Of a narrow window the middle third moves it, so that each part can be hit.
    const auto inwards = std::min (stripEdgeWidth, (right - left) / 3.0);

    if (x < left - stripEdgeWidth || x > right + stripEdgeWidth)
        return Part::outside;

    if (x < left + inwards)
        return Part::leftEdge;

    return x > right - inwards ? Part::rightEdge : Part::inside;
}

TimeView StripWindow::drag (Part part, double distance) const noexcept
{
    const auto samples = distance * getSamplesPerPixel();
    auto result = view;

    if (part == Part::inside)
        result.moveBy (samples);

    // The other edge stays where it is.
    if (part == Part::leftEdge)
    {
        const auto end = view.getEnd();
        const auto start = std::clamp (view.getStart() + samples,
                                       std::min (view.getStart(), view.getSoundStart()),
                                       end - view.getShortestLength());
        result.setRange (start, end - start);
    }

    if (part == Part::rightEdge)
        result.setRange (view.getStart(),
                         std::clamp (view.getEnd() + samples,
                                     view.getStart() + view.getShortestLength(),
                                     std::max (view.getEnd(), view.getSoundEnd()))
                             - view.getStart());

    return result;
}

TimeView StripWindow::centreAt (double x) const noexcept
{
    auto result = view;
    result.setRange (getSampleAt (x) - view.getLength() * 0.5, view.getLength());
    return result;
}

} // namespace mk::orlo
