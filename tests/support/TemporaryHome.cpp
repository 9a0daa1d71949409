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

void setHome ([[maybe_unused]] const juce::String& path)
{
#if ! JUCE_WINDOWS
    if (path.isEmpty())
        unsetenv (homeVariable);
    else
        setenv (homeVariable, path.toRawUTF8(), 1);
#endif
}
} // namespace

TemporaryHome::TemporaryHome() : formerHome (juce::SystemStats::getEnvironmentVariable (homeVariable, {}))
{
    setHome (folder.get().getFullPathName());
}

TemporaryHome::~TemporaryHome() { setHome (formerHome); }

} // namespace mk::orlo::test
