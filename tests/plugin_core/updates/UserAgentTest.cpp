// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/UserAgent.h"

#include <gtest/gtest.h>

namespace mk::pluginCore::test
{

TEST (UserAgent, NamesProductVersionHostAndSystem)
{
    EXPECT_EQ (makeUserAgent ("Orlo", "1.2.1", "Ableton Live 12", "Mac OSX 14.5", true),
               "Orlo/1.2.1-Ableton Live 12 (Mac OSX 14.5 arm)");
    EXPECT_EQ (makeUserAgent ("Orlo", "1.2.1", "Reaper", "Linux", false), "Orlo/1.2.1-Reaper (Linux)");
}

TEST (UserAgent, HasNoBlanksInTheVersionAndAWordForAnUnknownHost)
{
    EXPECT_EQ (makeUserAgent ("Orlo", " 1.2.1 beta 3 ", "", "Linux", false), "Orlo/1.2.1beta3-Unknown (Linux)");
}

TEST (UserAgent, CannotAddAnotherHeader)
{
    EXPECT_EQ (makeUserAgent ("Or\r\nX: y", "1", "a\nb", "L\x7f", false), "OrX: y/1-ab (L)");
}

TEST (UserAgent, OfThisProgramIsFilledIn)
{
    const auto agent = makeUserAgent ("Orlo", "1.2.1");
    EXPECT_TRUE (agent.startsWith ("Orlo/1.2.1-Unknown (")) << agent;
    EXPECT_TRUE (agent.contains (juce::SystemStats::getOperatingSystemName())) << agent;
}

} // namespace mk::pluginCore::test
