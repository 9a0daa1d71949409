// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/standalone/StandaloneOptions.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
TEST (StandaloneOptions, WithoutArgumentsTheSoundInputIsShown)
{
    const auto options = parseStandaloneOptions ({});
    EXPECT_FALSE (options.showHelp);
    EXPECT_FALSE (options.showVersion);
    EXPECT_FALSE (options.audio.has_value());
    EXPECT_EQ (options.error, "");
}

TEST (StandaloneOptions, AFileIsRelativeToTheFolderOfTheCaller)
{
    const auto options = parseStandaloneOptions ({ "some folder/a.wav" });
    ASSERT_TRUE (options.audio.has_value());
    EXPECT_EQ (*options.audio, juce::File::getCurrentWorkingDirectory().getChildFile ("some folder/a.wav"));
    EXPECT_EQ (options.error, "");
}

TEST (StandaloneOptions, AfterTwoDashesANameMayBeginWithOne)
{
    const auto options = parseStandaloneOptions ({ "--", "--help" });
    EXPECT_FALSE (options.showHelp);
    ASSERT_TRUE (options.audio.has_value());
    EXPECT_EQ (options.audio->getFileName(), "--help");
}

TEST (StandaloneOptions, HelpAndVersionAreAskedForByTheUsualNames)
{
    EXPECT_TRUE (parseStandaloneOptions ({ "--help" }).showHelp);
    EXPECT_TRUE (parseStandaloneOptions ({ "-h" }).showHelp);
    EXPECT_TRUE (parseStandaloneOptions ({ "--version" }).showVersion);
}

TEST (StandaloneOptions, WhatCannotBeUnderstoodIsAnError)
{
    EXPECT_EQ (parseStandaloneOptions ({ "--loud" }).error, "unknown option '--loud' (see --help)");
    EXPECT_EQ (parseStandaloneOptions ({ "a.wav", "b.wav" }).error, "one audio file at a time, 'b.wav' is the second");
    EXPECT_EQ (parseStandaloneOptions ({ "" }).error, "a file's name is empty");
}
} // namespace
} // namespace mk::orlo::test
