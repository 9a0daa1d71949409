// SPDX-License-Identifier: AGPL-3.0-or-later
// What the program shows of channels and points.
#include "OrloRenderFixture.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] float findLoudest (const NpyArray& array)
{
    return *std::max_element (array.values.begin(), array.values.end());
}

/** A tone in the left channel and the opposite, half as loud, in the right one. */
[[nodiscard]] Channels makeOppositeChannels (float right)
{
    auto left = makeSine (3000.0, 0.5f, 20000, rate);
    auto opposite = left;

    for (auto& sample : opposite)
        sample *= -right;

    return { std::move (left), std::move (opposite) };
}

const juce::StringArray small { "--height=200", "--freqScale=Linear", "--fftSize=1024" };

[[nodiscard]] juce::StringArray with (juce::StringArray options)
{
    options.addArray (small);
    return options;
}
} // namespace

class OrloRenderSource : public OrloRender, public testing::WithParamInterface<const char*>
{
};

TEST_P (OrloRenderSource, SeesOppositeChannelsInAllButTheirMean)
{
    const juce::String mode = juce::String ("--mode=") + GetParam();
    writeInput (makeOppositeChannels (1.0f));
    EXPECT_EQ (findLoudest (renderLevels (with ({ mode }))), 0.0f);
    EXPECT_EQ (findLoudest (renderLevels (with ({ mode, "--source=mid" }))), 0.0f);

    for (const auto* const source : { "left", "right", "side", "loudest", "2" })
        EXPECT_GT (findLoudest (renderLevels (with ({ mode, "--source", source }))), 0.9f) << source;
}

TEST_P (OrloRenderSource, LoudestIsTheLouderOfBothAtEachPixel)
{
    const juce::String mode = juce::String ("--mode=") + GetParam();
    auto channels = makeOppositeChannels (0.25f);
    const auto other = makeSine (9000.0, 0.4f, 20000, rate);

    for (size_t i = 0; i < other.size(); ++i)
        channels[1][i] += other[i];

    writeInput (channels);
    const auto left = renderLevels (with ({ mode, "--source=left" })),
               right = renderLevels (with ({ mode, "--source=2" }));
    const auto loudest = renderLevels (with ({ mode, "--source=loudest" }));
    ASSERT_EQ (loudest.values.size(), left.values.size());

    for (size_t i = 0; i < loudest.values.size(); ++i)
        ASSERT_EQ (loudest.values[i], std::max (left.values[i], right.values[i]));

    EXPECT_NE (loudest.values, left.values);
    EXPECT_NE (loudest.values, right.values);
}

INSTANTIATE_TEST_SUITE_P (Modes, OrloRenderSource, testing::Values ("Classic", "Enhanced"));

TEST_F (OrloRender, RefusesASourceThatTheFileDoesNotHave)
{
    writeInput ({ makeSine (3000.0, 0.5f, 2000, rate) });
    expectFailure (render ({ "--source=side" }), 2, "--source needs 2 channels");
}

TEST_F (OrloRender, KeepsTheToneOrTheClickAsAsked)
{
    auto signal = makeSine (3000.0, 0.1f, 30000, rate);
    signal[15000] += 1.0f;
    writeInput ({ signal });
    const auto countLit = [this] (const char* points, const juce::StringArray& more)
    {
        auto options = with (more);
        options.addArray ({ "--points-kept", points, "--floor=-80", "--duration=0.6" });
        const auto array = renderLevels (options);
        const auto toneRow = int (std::lround ((1.0 - 3000.0 / (rate / 2)) * (array.rows - 1)));
        std::pair<int, int> lit; // in the row of the tone, and far above it

        for (int row = 0; row < array.rows; ++row)
            for (int column = 0; column < array.columns; ++column)
                if (array.get (row, column) > 0.0f)
                {
                    lit.first += std::abs (row - toneRow) <= 1 ? 1 : 0;
                    lit.second += row < array.rows / 2 ? 1 : 0;
                }

        return lit;
    };

    for (const auto& more : { juce::StringArray(), juce::StringArray { "--exact", "--width=400" } })
    {
        const auto all = countLit ("all", more), lines = countLit ("lines", more), clicks = countLit ("clicks", more);
        EXPECT_GT (all.first, 100);
        EXPECT_GT (all.second, 50);
        EXPECT_GT (lines.first, all.first / 2);
        EXPECT_LT (lines.second, all.second / 5);
        EXPECT_LT (clicks.first, all.first / 2);
        EXPECT_GT (clicks.second, all.second / 2);
    }
}

} // namespace mk::orlo::test
