// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstdint>

namespace mk::orlo
{

/** Which frames of a picture go into which of its pixels, counted from its left edge.

    Each run of framesPerColumn frames is a column, and column i of n goes into pixel floor (i * width / n). So each
    pixel gets at least one column, and the numbers of columns that any two get differ by at most one. */
struct PixelMap
{
    std::int64_t numColumns = 0; /**< At least width; numColumns * width must fit into 63 bits. */
    int framesPerColumn = 1;
    int width = 0; /**< Pixels. */

    /** The pixel of a frame 0 .. numColumns * framesPerColumn; width for the frame after the last. */
    [[nodiscard]] int getPixel (std::int64_t frame) const noexcept
    {
        return int (frame / framesPerColumn * width / numColumns);
    }
};

} // namespace mk::orlo
