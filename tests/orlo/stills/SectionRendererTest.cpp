// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/SectionRenderer.h"

#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;
constexpr int signalLength = 20000;

/** The finished columns by pixel, where there is a pixel for each. */
using Columns = std::map<int, Column>;

class SectionRendererTest : public testing::Test
{
protected:
    SectionRendererTest() { settings.height = 100; }

    /** Chooses window, speed and mode. */
    void plan (int window, float speed, bool enhanced)
    {
        settings.hop = { window, rate, speed, false, enhanced };
        wholePlan = makePlan ({ settings.hop, 0, signalLength, 0 });
    }

    /** The plan's sections, of that many frames each. */
    [[nodiscard]] SectionPlan cut (int framesPerSection) const
    {
        auto sections = makeSectionPlan (wholePlan, settings.hop.enhanced, 1);
        sections.framesPerSection = framesPerSection;
        return sections;
    }

    /** Renders one section and adds its columns to the others. */
    void render (SectionRenderer& renderer, const Section& section, Columns& columns) const
    {
        std::vector<float> samples;

        for (auto n = section.firstSample; n < section.firstSample + section.numSamples; ++n)
            samples.push_back (n >= 0 && n < signalLength ? signal[size_t (n)] : 0.0f);

        EXPECT_TRUE (renderer.render (
            section,
            samples,
            [&] (const ColumnReducer::Part& part)
            {
                // Several frames may share a column, and sections may cut between them.
                const auto [entry, isNew] = columns.try_emplace (part.pixel, part.merged);

                if (! isNew)
                    mergeColumns (entry->second, part.merged);
            },
            [] { return true; }));
    }

    /** Renders the sections, in order or in the opposite one. */
    [[nodiscard]] Columns renderAll (int framesPerSection, bool backwards = false) const
    {
        const auto sections = cut (framesPerSection);
        SectionRenderer renderer (wholePlan, sections, settings);
        Columns columns;

        for (std::int64_t i = 0; i < sections.getNumSections(); ++i)
            render (renderer, sections.getSection (backwards ? sections.getNumSections() - 1 - i : i), columns);

        for (auto& [pixel, column] : columns)
            renderer.finish (column);

        return columns;
    }

    Samples signal = makeQuietNoise (signalLength);
    RenderSettings settings;
    RenderPlan wholePlan;
};

TEST_F (SectionRendererTest, SectionsOfAnyLengthAndInAnyOrderHaveTheColumnsOfOnePiece)
{
    for (const auto window : { 256, 2048, 8192 })
        for (const auto speed : { 0.0f, 40.0f })
            for (const auto enhanced : { false, true })
            {
                plan (window, speed, enhanced);
                const auto whole = renderAll (1000000);
                ASSERT_EQ (int (whole.size()), wholePlan.width);

                for (const auto framesPerSection : { 3, 50 })
                    for (const auto backwards : { false, true })
                        ASSERT_EQ (renderAll (framesPerSection, backwards), whole)
                            << window << " " << speed << " " << enhanced << " " << framesPerSection << " " << backwards;
            }
}

TEST_F (SectionRendererTest, BinsTooQuietForReassignmentDoNotDependOnEarlierSections)
{
    // Loud, then below -120 dB, where the analysis makes no shifts but the levels still show the bins.
    settings.floorDb = -140.0f;

    for (size_t i = signalLength / 2; i < signalLength; ++i)
        signal[i] *= 1.0e-5f;

    plan (1024, 40.0f, true);
    const auto whole = renderAll (1000000);
    EXPECT_EQ (renderAll (9), whole);
    EXPECT_EQ (renderAll (9, true), whole);

    float loudestOfQuiet = 0.0f;

    for (const auto& [pixel, column] : whole)
        if (pixel > int (whole.size()) * 3 / 4)
            loudestOfQuiet = std::max (loudestOfQuiet, *std::max_element (column.begin(), column.end()));

    EXPECT_GT (loudestOfQuiet, 0.0f);
    EXPECT_LT (loudestOfQuiet, 0.15f); // else the test has no quiet bins
}

TEST_F (SectionRendererTest, AllowsAHopMuchLongerThanTheWindow)
{
    // 16 ms at 1 MHz: 16000 samples a hop.
    settings.hop = { 256, 1.0e6, 0.0f, false, false };
    wholePlan = makePlan ({ settings.hop, 0, signalLength, 0 });
    ASSERT_EQ (wholePlan.analysis.samplesPerFrame, 16000);
    const auto whole = renderAll (1000);
    EXPECT_EQ (int (whole.size()), 2);
    EXPECT_EQ (renderAll (1), whole);
}

TEST_F (SectionRendererTest, StopsBetweenFrames)
{
    plan (1024, 40.0f, true);
    const auto sections = cut (100);
    SectionRenderer renderer (wholePlan, sections, settings);
    const auto section = sections.getSection (0);
    const std::vector<float> samples (size_t (section.numSamples));
    int numFrames = 0, numParts = 0;

    EXPECT_FALSE (renderer.render (
        section, samples, [&] (const ColumnReducer::Part&) { ++numParts; }, [&] { return numFrames++ < 50; }));
    EXPECT_EQ (numParts, 50 - sections.leadFrames);
}

} // namespace
} // namespace mk::orlo::test
