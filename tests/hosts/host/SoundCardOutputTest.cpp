// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/SoundCardOutput.h"
#include "tests/hosts/support/FakePlugin.h"
#include "tests/hosts/support/FakeSoundCard.h"
#include "tests/hosts/support/RampTrack.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
class SoundCardOutput : public testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<host::SoundCardOutput> makeOutput()
    {
        return std::make_unique<host::SoundCardOutput> (player, std::make_unique<FakeDeviceManager> (card));
    }

    FakeCardState card;
    FakePlugin plugin;
    host::PluginPlayer player { plugin, RampTrack::make() };
};

TEST_F (SoundCardOutput, IsNamelessWithoutACard)
{
    card.present = false;
    EXPECT_EQ (makeOutput()->getDeviceName(), "");
    EXPECT_TRUE (plugin.calls.empty());
}

TEST_F (SoundCardOutput, PlaysAtTheCardsOwnRateAndBlockSize)
{
    const auto output = makeOutput();
    EXPECT_EQ (output->getDeviceName(), "Fake card");

    output->start();
    EXPECT_THAT (plugin.calls, testing::ElementsAre ("prepare 44100 128"));

    // The ramp rises by 1 in 1000 samples at 48000 Hz.
    const auto played = card.play (128);
    EXPECT_NEAR (played.getSample (0, 110) - played.getSample (0, 10), 0.1f * 48000.0f / 44100.0f, 2.0e-3f);
    EXPECT_NEAR (played.getSample (1, 110), -played.getSample (0, 110), 1.0e-6f);
    ASSERT_EQ (plugin.blocks.size(), 1u);
    EXPECT_TRUE (plugin.blocks.front().playing);
}

TEST_F (SoundCardOutput, PlaysTheTrackAsItIsIfTheCardSupportsItsRate)
{
    card.onlyRate = RampTrack::sampleRate;
    const auto output = makeOutput();
    output->start();
    const auto played = card.play (128);

    for (int i = 0; i < 128; ++i)
        EXPECT_EQ (played.getSample (0, i), float (i) / RampTrack::length) << i;
}

TEST_F (SoundCardOutput, ReleasesTheCardAndThePlugin)
{
    auto output = makeOutput();
    output->start();
    EXPECT_TRUE (card.open);
    output = nullptr;

    EXPECT_FALSE (card.open);
    EXPECT_EQ (card.callback, nullptr);
    EXPECT_EQ (plugin.calls.back(), "release");
}
} // namespace
} // namespace mk::orlo::test
