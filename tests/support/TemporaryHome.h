// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "TemporaryFolder.h"

namespace mk::orlo::test
{

/** A fresh, empty home folder for as long as the object lives, and one for all users' data, so that nothing
    the plug-in reads or writes is the real user's or system's. Every test program runs inside one; a test that needs an empty home of its own
    makes another. Has no effect on Windows, where the folders are not the environment's. */
class TemporaryHome
{
public:
    TemporaryHome();
    ~TemporaryHome();

    [[nodiscard]] juce::File getFolder() const { return folder.get(); }

    /** [Linux] The base folder of what is installed for all users; its folder of presets exists. */
    [[nodiscard]] juce::File getSystemDataFolder() const { return systemData.get(); }

private:
    const TemporaryFolder folder, systemData;
    const juce::String formerHome, formerData, formerConfiguration;

    JUCE_DECLARE_NON_COPYABLE (TemporaryHome)
};

} // namespace mk::orlo::test
