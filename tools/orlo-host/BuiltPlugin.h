// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::host
{

/** The bundle that was built or installed together with this program. Its path is relative to the program's own. */
[[nodiscard]] juce::File getBuiltPlugin();

} // namespace mk::orlo::host
