// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/LoopPlayHead.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
TEST (LoopPlayHead, PlaysFromTheStart)
{
    host::LoopPlayHead head;
    head.restart (48000.0, 96000);
    const auto position = head.getPosition();

    ASSERT_TRUE (position.hasValue());
    EXPECT_TRUE (position->getIsPlaying());
    EXPECT_TRUE (position->getIsLooping());
    EXPECT_FALSE (position->getIsRecording());
    EXPECT_EQ (position->getTimeInSamples(), 0);
    EXPECT_EQ (position->getTimeInSeconds(), 0.0);
    EXPECT_EQ (position->getPpqPosition(), 0.0);
    EXPECT_EQ (position->getLoopPoints()->ppqEnd, 4.0);
}

TEST (LoopPlayHead, CountsSamplesSecondsAndBeats)
{
    host::LoopPlayHead head;
    head.restart (48000.0, 960000);
    head.advance (512);
    head.advance (71488);

    EXPECT_EQ (head.getPosition()->getTimeInSamples(), 72000);
    EXPECT_EQ (head.getPosition()->getTimeInSeconds(), 1.5);
    EXPECT_EQ (head.getPosition()->getPpqPosition(), 3.0);
}

TEST (LoopPlayHead, GoesBackAtTheEndOfTheLoop)
{
    host::LoopPlayHead head;
    head.restart (44100.0, 1000);

    for (int block = 0; block < 5; ++block)
        head.advance (512);

    EXPECT_EQ (head.getPosition()->getTimeInSamples(), 5 * 512 % 1000);
    head.restart (44100.0, 1000);
    EXPECT_EQ (head.getPosition()->getTimeInSamples(), 0);
}

TEST (LoopPlayHead, SurvivesALoopOfNoLength)
{
    host::LoopPlayHead head;
    head.restart (44100.0, 0);
    head.advance (512);
    EXPECT_EQ (head.getPosition()->getTimeInSamples(), 0);
}
} // namespace
} // namespace mk::orlo::test
