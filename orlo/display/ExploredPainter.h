// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/explore/Explorer.h"

namespace mk::orlo
{

/** Draws the explored picture over the view. Until the picture of the range that is looked at is finished, the one before is
    moved and stretched to where it belongs. Returns false and draws nothing before the first picture.
    [message thread]
    @param view  in the context's units */
bool paintExplored (juce::Graphics& g, const Explorer& explorer, juce::Rectangle<int> view);

} // namespace mk::orlo
