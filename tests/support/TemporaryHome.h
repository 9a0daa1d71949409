// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "TemporaryFolder.h"

namespace mk::orlo::test
{

/** A fresh, empty home folder, and a data folder for all users, that replace the real ones while the object exists: the
    plug-in reads and writes nothing of the real user or system. Every test program runs in one; a test that needs an
    empty home creates another. Has no effect on Windows, which does not take these folders from the environment. */
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
    const juce::String formerHome, formerData, formerOwnData, formerConfiguration;

    JUCE_DECLARE_NON_COPYABLE (TemporaryHome)
};

} // namespace mk::orlo::test
