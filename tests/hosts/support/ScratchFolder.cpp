// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ScratchFolder.h"

namespace mk::orlo::test
{

ScratchFolder::ScratchFolder()
    : folder (juce::File::getSpecialLocation (juce::File::tempDirectory)
                  .getChildFile ("orlo-test-" + juce::Uuid().toString()))
{
    folder.createDirectory();
}

ScratchFolder::~ScratchFolder() { folder.deleteRecursively(); }

} // namespace mk::orlo::test
