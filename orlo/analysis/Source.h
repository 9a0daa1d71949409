// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <array>

namespace mk::orlo
{

/** What is analysed of two channels. */
enum class Source
{
    mean,
    left,
    right,
    mid,    /**< Half the sum, which is also the mean. */
    side,   /**< Half the difference, left minus right. */
    loudest /**< Both channels; of each point the louder one is shown. */
};

/** The names by which sessions and the translations know them, in the order of Source. */
inline constexpr std::array sourceNames { "Mean", "Left", "Right", "Mid", "Side", "Loudest" };

} // namespace mk::orlo
