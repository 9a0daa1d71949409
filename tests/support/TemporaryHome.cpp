// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TemporaryHome.h"

#include <cstdlib>

namespace mk::orlo::test
{
namespace
{
#if JUCE_MAC
constexpr auto homeVariable = "CFFIXED_USER_HOME";
#else
constexpr auto homeVariable = "HOME";
#endif

// Where Linux looks for the files that an installation has put there for all users.
constexpr auto dataVariable = "XDG_DATA_DIRS";

// Where Linux looks for the files that an installation has put there for one user, if not in the home folder.
constexpr auto ownDataVariable = "XDG_DATA_HOME";

// Where Linux looks for the user's configuration, if not in the home folder.
constexpr auto configurationVariable = "XDG_CONFIG_HOME";

void setVariable ([[maybe_unused]] const char* name, [[maybe_unused]] const juce::String& value)
{
#if ! JUCE_WINDOWS
    if (value.isEmpty())
        unsetenv (name);
    else
        setenv (name, value.toRawUTF8(), 1);
#endif
}
} // namespace

TemporaryHome::TemporaryHome()
    : formerHome (juce::SystemStats::getEnvironmentVariable (homeVariable, {})),
      formerData (juce::SystemStats::getEnvironmentVariable (dataVariable, {})),
      formerOwnData (juce::SystemStats::getEnvironmentVariable (ownDataVariable, {})),
      formerConfiguration (juce::SystemStats::getEnvironmentVariable (configurationVariable, {}))
{
    setVariable (homeVariable, folder.get().getFullPathName());
    setVariable (dataVariable, systemData.get().getFullPathName());
    setVariable (ownDataVariable, {});
    setVariable (configurationVariable, {});

    // A data folder counts as the installation's only if it holds the product's files.
    systemData.get().getChildFile ("Morlek/Orlo/presets").createDirectory();
}

TemporaryHome::~TemporaryHome()
{
    setVariable (homeVariable, formerHome);
    setVariable (dataVariable, formerData);
    setVariable (ownDataVariable, formerOwnData);
    setVariable (configurationVariable, formerConfiguration);
}

} // namespace mk::orlo::test
