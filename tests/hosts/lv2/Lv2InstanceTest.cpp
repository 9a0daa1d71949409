// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Lv2Host.h"

#include <cmath>
#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
class Lv2Plugin : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE (host.getPlugin(), nullptr); }

    Lv2Host host { juce::File (ORLO_LV2_BUNDLE) };
};

TEST_F (Lv2Plugin, IsSoundByTheRulesOfLilv) { EXPECT_TRUE (lilv_plugin_verify (host.getPlugin())); }

TEST_F (Lv2Plugin, PassesTheAudioThroughUntouched)
{
    Lv2Instance instance (host);
    ASSERT_TRUE (instance.isLoaded());

    for (int block = 0; block < 4; ++block)
    {
        for (int i = 0; i < Lv2Host::blockSize; ++i)
        {
            instance.inputs[0][size_t (i)] = std::sin (0.01f * float (i + block));
            instance.inputs[1][size_t (i)] = std::cos (0.03f * float (i + block));
        }

        instance.run();
        EXPECT_EQ (instance.outputs[0], instance.inputs[0]);
        EXPECT_EQ (instance.outputs[1], instance.inputs[1]);
    }
}

TEST_F (Lv2Plugin, BringsASessionBackIntoANewInstance)
{
    const std::string colourMap = ORLO_LV2_URI ":colourMap";
    std::string session;

    {
        Lv2Instance instance (host);
        ASSERT_TRUE (instance.isLoaded());
        const auto fresh = instance.save();
        instance.setParameter (colourMap, 7.0f);
        instance.run();
        session = instance.save();
        ASSERT_NE (session, fresh);
    }

    Lv2Instance instance (host);
    ASSERT_TRUE (instance.isLoaded());
    ASSERT_NE (instance.save(), session);
    instance.restore (session);
    EXPECT_EQ (instance.save(), session);
}

TEST_F (Lv2Plugin, MayBeFreedWhileItsMessageThreadStillHasWork)
{
    std::string session;

    {
        Lv2Instance instance (host);
        ASSERT_TRUE (instance.isLoaded());
        instance.setParameter (ORLO_LV2_URI ":colourMap", 7.0f);
        instance.run();
        session = instance.save();
    }

    // Restoring on this thread lets the message thread update what components listen to.
    for (int round = 0; round < 100; ++round)
    {
        Lv2Instance instance (host);
        ASSERT_TRUE (instance.isLoaded());
        instance.restore (session);
    }
}
} // namespace
} // namespace mk::orlo::test
