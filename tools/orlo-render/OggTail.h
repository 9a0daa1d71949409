// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::render
{

/** Whether an Ogg stream runs up to its end: its last page is whole and says that it is the last. What is
    missing from a stream that was cut off shows nowhere else: its length is counted from what is left.
    The stream's position is the same afterwards. */
[[nodiscard]] bool endsWithLastPage (juce::InputStream& stream);

} // namespace mk::orlo::render
