// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TemporaryFolder.h"

#include <cstdlib>

namespace mk::orlo::test
{

TemporaryFolder::TemporaryFolder()
    : folder (juce::File::getSpecialLocation (juce::File::tempDirectory)
                  .getChildFile ("orlo-test-" + juce::Uuid().toString()))
{
    // Without the folder a test would write elsewhere, perhaps into the user's own files.
    if (folder.createDirectory().failed())
        std::abort();
}

TemporaryFolder::~TemporaryFolder() { folder.deleteRecursively(); }

} // namespace mk::orlo::test
