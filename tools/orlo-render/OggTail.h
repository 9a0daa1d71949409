// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::render
{

/** Whether an Ogg stream is complete: its last page is whole and is marked as the last. Nothing else shows that
    a stream was cut off, since its length is computed from the pages that are left. The stream's position is
    the same afterwards. */
[[nodiscard]] bool endsWithLastPage (juce::InputStream& stream);

} // namespace mk::orlo::render
