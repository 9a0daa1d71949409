// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SideBarLayout.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
constexpr int smallestButton = 15;

// The export icon is a little smaller than the others.
constexpr float exportInsetFactor = 1.1f;

[[nodiscard]] juce::Rectangle<int> atLeastEmpty (int x, int y, int width, int height) noexcept
{
    return { x, y, std::max (width, 0), std::max (height, 0) };
}
} // namespace

SideBarLayout SideBarLayout::forSize (int width, int height) noexcept
{
    const auto w = width;
    const auto button = std::max (std::min (w, smallestButton), w * 4 / 6);
    const auto inset = (w - button) / 2;
    const auto pad = button / 7;
    const auto freeHeight = std::max (height - 2 * pad, 0);

    const auto cell1 = std::min (freeHeight, w);
    const auto cell2 = std::min (freeHeight - cell1, w);
    const auto cell3 = std::min (freeHeight - cell1 - cell2, w);
    const auto y1 = pad;
    const auto y2 = y1 + cell1;
    const auto y3 = y2 + cell2;

    const auto exportInset = juce::roundToInt (float (inset) * exportInsetFactor);

    auto rest = freeHeight - cell1 - cell2 - cell3;
    rest -= std::min (rest, inset);
    const auto strip = std::min (rest, w * 3);
    const auto stripTop = y3 + cell3 + rest - strip;
    const auto emptyTop = std::min (strip, w);
    const auto side = w / 6;

    // Each lower icon is moved up towards the one above, so that the three read as one group.
    return { atLeastEmpty (inset, y1 + inset, w - 2 * inset, cell1 - 2 * inset),
             atLeastEmpty (inset, y2 + inset - w / 8, w - 2 * inset, cell2 - 2 * inset),
             atLeastEmpty (exportInset, y3 + exportInset - w / 4, w - 2 * exportInset, cell3 - 2 * exportInset),
             atLeastEmpty (side, stripTop + emptyTop, w - 2 * side, strip - emptyTop) };
}

} // namespace mk::orlo
