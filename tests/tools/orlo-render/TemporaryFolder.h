// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::test
{

/** A folder that goes, with all that is in it, when the test ends. */
class TemporaryFolder
{
public:
    TemporaryFolder() { folder.createDirectory(); }
    ~TemporaryFolder() { folder.deleteRecursively(); }

    [[nodiscard]] juce::File getFile (const juce::String& name) const { return folder.getChildFile (name); }

    /** The names of all that is in it, hidden files too, in order. */
    [[nodiscard]] juce::StringArray getNames() const
    {
        juce::StringArray names;

        for (const auto& file : folder.findChildFiles (juce::File::findFilesAndDirectories, false))
            names.add (file.getFileName());

        names.sort (false);
        return names;
    }

private:
    const juce::File folder = juce::File::getSpecialLocation (juce::File::tempDirectory)
                                  .getNonexistentChildFile ("orlo-render-test" + juce::Uuid().toString(), {});

    JUCE_DECLARE_NON_COPYABLE (TemporaryFolder)
};

} // namespace mk::orlo::test
