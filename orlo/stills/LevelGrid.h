// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace mk::orlo
{

/** The levels of a whole picture, column by column; row 0 is the topmost. */
class LevelGrid
{
public:
    /** All levels are zero. */
    LevelGrid (int gridWidth, int gridHeight)
        : width (gridWidth), height (gridHeight), levels (size_t (gridWidth) * size_t (gridHeight))
    {
    }

    [[nodiscard]] int getWidth() const noexcept { return width; }
    [[nodiscard]] int getHeight() const noexcept { return height; }

    [[nodiscard]] float get (int x, int y) const noexcept { return levels[getStart (x) + size_t (y)]; }

    [[nodiscard]] std::span<const float> getColumn (int x) const noexcept
    {
        return { levels.data() + getStart (x), size_t (height) };
    }

    /** Copies getHeight() levels into column x. Several threads may set different columns at the same time. */
    void setColumn (int x, std::span<const float> column) noexcept
    {
        std::copy_n (column.begin(), height, levels.begin() + std::ptrdiff_t (getStart (x)));
    }

private:
    [[nodiscard]] size_t getStart (int x) const noexcept { return size_t (x) * size_t (height); }

    int width, height;
    std::vector<float> levels;
};

} // namespace mk::orlo
