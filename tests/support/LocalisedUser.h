// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace mk::orlo::test
{

/** A user whose system is set to a language, for which the locale is made on the spot. */
class LocalisedUser : public testing::Test
{
protected:
    LocalisedUser() { setenv ("LOCPATH", folder.get().getFullPathName().toRawUTF8(), 1); }

    ~LocalisedUser() override
    {
        unsetenv ("LC_ALL");
        unsetenv ("LOCPATH");
        juce::LocalisedStrings::setCurrentMappings (nullptr);
    }

    /** False if this machine has no source to make the locale from. */
    [[nodiscard]] bool setLocale (const juce::String& name) const
    {
        juce::ChildProcess localedef;
        const auto started = localedef.start (
            { "localedef", "-i", name, "-f", "UTF-8", folder.get().getChildFile (name + ".UTF-8").getFullPathName() });

        if (! started || ! localedef.waitForProcessToFinish (60000) || localedef.getExitCode() != 0)
            return false;

        setenv ("LC_ALL", (name + ".UTF-8").toRawUTF8(), 1);
        return true;
    }

private:
    const TemporaryFolder folder;
};

} // namespace mk::orlo::test
