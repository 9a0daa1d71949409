// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/PluginParameters.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tools/orlo-host/HostError.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
class ParameterText : public testing::Test
{
protected:
    /** In the parameter's own unit. */
    [[nodiscard]] float valueOf (const char* id, const char* text)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (host::valueForText (parameter, text));
    }

    AudioPluginAudioProcessor processor;
};

TEST_F (ParameterText, IsWhatTheParameterShows)
{
    EXPECT_EQ (valueOf (Params::id::mode, "Classic"), 0.0f);
    EXPECT_EQ (valueOf (Params::id::mode, "Enhanced"), 1.0f);
    EXPECT_EQ (valueOf (Params::id::fftSize, "8192"), 5.0f);
    EXPECT_EQ (valueOf (Params::id::freqScale, "ERB"), 4.0f);
    EXPECT_EQ (valueOf (Params::id::colourMap, "voltage"), 45.0f);
    EXPECT_EQ (valueOf (Params::id::freeze, "On"), 1.0f);
}

TEST_F (ParameterText, OfASwitchMayBeAnyUsualWord)
{
    for (const auto* const word : { "on", "yes", "true", "1" })
        EXPECT_EQ (valueOf (Params::id::freeze, word), 1.0f) << word;

    for (const auto* const word : { "off", "no", "false", "0" })
        EXPECT_EQ (valueOf (Params::id::freeze, word), 0.0f) << word;

    // Only a switch accepts these words.
    EXPECT_THROW (static_cast<void> (valueOf (Params::id::mode, "on")), host::HostError);
    EXPECT_THROW (static_cast<void> (valueOf (Params::id::drawMode, "0")), host::HostError);
}

TEST_F (ParameterText, MayBeANumberWithItsUnit)
{
    EXPECT_NEAR (valueOf (Params::id::floor, "-61.5"), -61.5f, 1.0e-4f);
    EXPECT_NEAR (valueOf (Params::id::floor, "-61.5 dB"), -61.5f, 1.0e-4f);
    EXPECT_NEAR (valueOf (Params::id::speed, "33%"), 33.0f, 1.0e-4f);
    EXPECT_EQ (valueOf (Params::id::minFreq, "0"), 0.0f);
    EXPECT_EQ (valueOf (Params::id::maxFreq, "100"), 100.0f);
}

TEST_F (ParameterText, OfAGainMayLeaveItsSignOut)
{
    EXPECT_NEAR (valueOf (Params::id::floor, "40"), -40.0f, 1.0e-4f);
    EXPECT_EQ (valueOf (Params::id::floor, "140"), -140.0f);
}

TEST_F (ParameterText, IsRefusedIfItIsNoValueOfTheParameter)
{
    for (const auto* const text : { "", "loud", "-61 dBm", "-141", "500", "nan", "1 2" })
        EXPECT_THROW (static_cast<void> (valueOf (Params::id::floor, text)), host::HostError) << text;

    for (const auto* const text : { "", "1000", "16384", "Viridis" })
        EXPECT_THROW (static_cast<void> (valueOf (Params::id::fftSize, text)), host::HostError) << text;

    EXPECT_THROW (static_cast<void> (valueOf (Params::id::speed, "101")), host::HostError);
    EXPECT_THROW (static_cast<void> (valueOf (Params::id::speed, "-1")), host::HostError);
}
} // namespace
} // namespace mk::orlo::test
