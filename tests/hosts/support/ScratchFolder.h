// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::test
{

/** A folder for the files of one test, deleted with all that is in it. */
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();

    [[nodiscard]] juce::File getFile (const juce::String& name) const { return folder.getChildFile (name); }

    /** The same as a text for a command line. */
    [[nodiscard]] juce::String getPath (const juce::String& name) const { return getFile (name).getFullPathName(); }

private:
    const juce::File folder;

    JUCE_DECLARE_NON_COPYABLE (ScratchFolder)
};

} // namespace mk::orlo::test
