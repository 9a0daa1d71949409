// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/explore/TimeView.h"

namespace mk::orlo
{

/** The window in a strip that shows all of a sound: the range that is looked at, which can be dragged, and pulled at its
    edges. Any thread. */
class StripWindow
{
public:
    /** What a place in the strip belongs to. */
    enum class Part
    {
        outside,
        leftEdge,
        inside,
        rightEdge
    };

    /** @param width  of the strip, in pixels; at least 1 */
    StripWindow (const TimeView& timeView, int stripWidth) noexcept : view (timeView), width (stripWidth) {}

    /** The window's edges in pixels. It is never narrower than can be seen and pressed. */
    [[nodiscard]] double getLeft() const noexcept;
    [[nodiscard]] double getRight() const noexcept;

    [[nodiscard]] double getSampleAt (double x) const noexcept;
    [[nodiscard]] Part findPart (double x) const noexcept;

    /** The range after the window, or its edge, has been dragged by some pixels. */
    [[nodiscard]] TimeView drag (Part part, double distance) const noexcept;

    /** The range with its middle at a place. */
    [[nodiscard]] TimeView centreAt (double x) const noexcept;

private:
    [[nodiscard]] double getPixel (double sample) const noexcept;
    [[nodiscard]] double getSamplesPerPixel() const noexcept;

    const TimeView view;
    const int width;
};

} // namespace mk::orlo
