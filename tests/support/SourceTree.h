// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::test
{

/** The project's own folder, for tests that read its files. */
[[nodiscard]] juce::File getSourceFolder();

/** tests/data. */
[[nodiscard]] juce::File getTestDataFolder();

} // namespace mk::orlo::test
