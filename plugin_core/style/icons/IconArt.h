// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Icon.h"

#include <cstddef>
#include <span>

namespace mk::pluginCore
{

/** One stroke or shape of an icon, in units of the icons' grid. */
struct IconMark
{
    enum class Kind
    {
        line,     /**< x, y of two to six points; they are moved onto whole pixels */
        diagonal, /**< as line, but the points are not moved */
        polygon,  /**< as line, and closed */
        circle,   /**< centre x, y, radius */
        arc,      /**< centre x, y, radius, first and last angle in degrees, clockwise from the top */
        box,      /**< x, y, width, height, corner radius */
        block,    /**< as box, filled, without a corner radius */
        dot       /**< centre x, y, radius, filled */
    };

    Kind kind;
    std::size_t numValues;
    std::array<float, 12> values;
};

/** The marks that make up an icon. Any thread. */
[[nodiscard]] std::span<const IconMark> getIconArt (Icon icon) noexcept;

} // namespace mk::pluginCore
