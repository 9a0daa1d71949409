// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillPixels.h"

#include "FrameOrder.h"
#include "orlo/analysis/Decibels.h"

#include <algorithm>
#include <vector>

namespace mk::orlo
{
namespace
{
// So many floats are a line of the cache.
constexpr int stripWidth = 16;

/** The first of the columns that a pixel shows. */
[[nodiscard]] int getFirstColumnAt (int x, const StillPlan& plan, const StillPicture& picture) noexcept
{
    const auto column = getColumnOfPixel (plan, picture.getRequest(), x);
    return picture.isCoarse() ? column - column % FrameOrder::coarseness : column;
}

void fillColumn (const MagnitudeGrid& grid, int first, int end, float* decibels, size_t height)
{
    if (end - first == 1)
    {
        fastDecibels (grid.getColumn (first).data(), decibels, height);
        return;
    }

    // Only the first column has frames so far, but their points may lie in any of them.
    std::vector<float> loudest (height);

    for (auto column = first; column < end; ++column)
        std::transform (loudest.begin(),
                        loudest.end(),
                        grid.getColumn (column).begin(),
                        loudest.begin(),
                        [] (float left, float right) { return right > left ? right : left; });

    fastDecibels (loudest.data(), decibels, height);
}
} // namespace

int getNumStrips (int width) noexcept { return (width + stripWidth - 1) / stripWidth; }

void fillStrip (const MagnitudeGrid& grid, const StillPlan& plan, int strip, StillPicture& picture)
{
    const auto height = size_t (picture.getHeight());
    const auto left = strip * stripWidth;
    const auto width = std::min (stripWidth, picture.getWidth() - left);
    const auto numColumnsAtOnce = picture.isCoarse() ? FrameOrder::coarseness : 1;
    std::vector<float> columns (size_t (width) * height);

    for (int x = 0, before = -1; x < width; ++x)
    {
        auto* const decibels = columns.data() + size_t (x) * height;
        const auto first = getFirstColumnAt (left + x, plan, picture);

        if (x > 0 && first == before)
            std::copy_n (decibels - height, height, decibels);
        else
            fillColumn (grid, first, std::min (first + numColumnsAtOnce, plan.numColumns), decibels, height);

        before = first;
    }

    for (int y = 0; y < picture.getHeight(); ++y)
    {
        auto* const row = picture.getRow (y).data() + left;

        for (int x = 0; x < width; ++x)
            row[x] = columns[size_t (x) * height + size_t (y)];
    }
}

} // namespace mk::orlo
