// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/DemoSignal.h"

#include <gtest/gtest.h>

#include <complex>

namespace mk::orlo::test
{
namespace
{
using namespace host;

constexpr double rate = 44100.0;

/** The amplitude of a frequency over one second from the given time, in the mean of both channels. */
[[nodiscard]] double amplitudeAt (const juce::AudioBuffer<float>& signal, double start, double hz)
{
    const auto first = juce::roundToInt (start * rate);
    const auto length = juce::roundToInt (rate);
    std::complex<double> sum;

    for (int i = 0; i < length; ++i)
    {
        const auto window = 1.0 - std::cos (juce::MathConstants<double>::twoPi * i / length);
        const auto value = 0.5 * double (signal.getSample (0, first + i) + signal.getSample (1, first + i));
        sum += window * value * std::polar (1.0, -juce::MathConstants<double>::twoPi * hz * i / rate);
    }

    return 2.0 * std::abs (sum) / length;
}

class DemoSignal : public testing::Test
{
protected:
    static void SetUpTestSuite() { signal = makeDemoSignal (rate); }
    static void TearDownTestSuite() { signal = {}; }

    static inline juce::AudioBuffer<float> signal;
};

TEST_F (DemoSignal, LastsTwentySecondsInStereo)
{
    EXPECT_EQ (signal.getNumChannels(), 2);
    EXPECT_EQ (signal.getNumSamples(), juce::roundToInt (20.0 * rate));
}

TEST_F (DemoSignal, StaysBelowFullScaleAndIsHeard)
{
    for (int channel = 0; channel < 2; ++channel)
    {
        EXPECT_LT (signal.getMagnitude (channel, 0, signal.getNumSamples()), 0.99f);
        EXPECT_GT (signal.getRMSLevel (channel, 0, signal.getNumSamples()), 0.03f);
    }
}

TEST_F (DemoSignal, IsSilentWhereItsEndsMeet)
{
    EXPECT_LT (signal.getMagnitude (0, 16), 1.0e-3f);
    EXPECT_LT (signal.getMagnitude (signal.getNumSamples() - 16, 16), 1.0e-3f);
}

TEST_F (DemoSignal, HasTheHarmonicsOfItsRootInEachBarAndLittleBetweenThem)
{
    for (int bar = 0; bar < demo::numBars; ++bar)
    {
        const auto root = demo::getRoot (bar);
        const auto start = bar * demo::barSeconds + 1.0;

        for (int harmonic = 1; harmonic <= 5; ++harmonic)
        {
            EXPECT_GT (amplitudeAt (signal, start, root * harmonic), 0.035) << bar << ", " << harmonic;
            EXPECT_LT (amplitudeAt (signal, start, root * (harmonic + 0.5)), 0.009) << bar << ", " << harmonic;
        }
    }
}

TEST_F (DemoSignal, IsTheSameEveryTime)
{
    const auto again = makeDemoSignal (rate);

    for (int channel = 0; channel < 2; ++channel)
        EXPECT_TRUE (std::equal (again.getReadPointer (channel),
                                 again.getReadPointer (channel) + again.getNumSamples(),
                                 signal.getReadPointer (channel)));
}

TEST_F (DemoSignal, IsFiniteAtAnyRate)
{
    for (const auto other : { 8000.0, 192000.0 })
    {
        const auto buffer = makeDemoSignal (other);
        EXPECT_EQ (buffer.getNumSamples(), juce::roundToInt (20.0 * other));
        const auto range = buffer.findMinMax (0, 0, buffer.getNumSamples());
        EXPECT_TRUE (range.getStart() > -0.99f && range.getEnd() < 0.99f) << other;
    }
}
} // namespace
} // namespace mk::orlo::test
