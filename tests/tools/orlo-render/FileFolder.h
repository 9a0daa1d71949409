// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tests/support/TemporaryFolder.h"

namespace mk::orlo::test
{

/** A temporary folder for the files of a test. */
class FileFolder
{
public:
    [[nodiscard]] juce::File getFile (const juce::String& name) const { return folder.get().getChildFile (name); }

    /** The names of all files in it, hidden ones included, in alphabetical order. */
    [[nodiscard]] juce::StringArray getNames() const
    {
        juce::StringArray names;

        for (const auto& file : folder.get().findChildFiles (juce::File::findFilesAndDirectories, false))
            names.add (file.getFileName());

        names.sort (false);
        return names;
    }

private:
    const TemporaryFolder folder {};
};

} // namespace mk::orlo::test
