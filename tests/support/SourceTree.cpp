// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SourceTree.h"

namespace mk::orlo::test
{

// Only this file is given the path, so that all others compile alike wherever the project is.
juce::File getSourceFolder() { return juce::File (ORLO_SOURCE_DIR); }

juce::File getTestDataFolder() { return getSourceFolder().getChildFile ("tests/data"); }

} // namespace mk::orlo::test
