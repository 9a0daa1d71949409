// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/SectionPlan.h"

#include <gtest/gtest.h>

#include <functional>

namespace mk::orlo::test
{
namespace
{
/** Calls the function with the sections of pictures of many lengths, rates and windows. */
void forEachPlan (const std::function<void (const RenderPlan&, const SectionPlan&, bool enhanced)>& check)
{
    for (const auto label : { 256, 2048, 8192 })
        for (const auto rate : { 8000.0, 44100.0, 1.0e6 })
            for (const auto speed : { 0.0f, 40.0f })
                for (const auto enhanced : { false, true })
                    for (const std::int64_t length : { 1, 5000, 600000, 100000000 })
                        for (const auto numThreads : { 1, 2, 64 })
                        {
                            SCOPED_TRACE (testing::Message() << label << " " << rate << " " << speed << " " << enhanced
                                                             << " " << length << " " << numThreads);
                            const auto plan = makePlan ({ { label, rate, speed, false, enhanced }, 1000, length, 0 });
                            check (plan, makeSectionPlan (plan, enhanced, numThreads), enhanced);
                        }
}
} // namespace

TEST (SectionPlan, EveryFrameOfThePictureIsInOneSection)
{
    forEachPlan (
        [] (const RenderPlan& plan, const SectionPlan& sections, bool)
        {
            std::int64_t next = 0;

            for (std::int64_t i = 0; i < sections.getNumSections(); ++i)
            {
                const auto section = sections.getSection (i);
                EXPECT_EQ (section.index, i);
                EXPECT_EQ (section.firstFrame, next);
                EXPECT_GT (section.endFrame, section.firstFrame);
                next = section.endFrame;
            }

            EXPECT_EQ (next, plan.getNumPictureFrames());
        });
}

TEST (SectionPlan, ASectionsAudioEndsWithItsLastHop)
{
    forEachPlan (
        [] (const RenderPlan& plan, const SectionPlan& sections, bool)
        {
            for (std::int64_t i = 0; i < sections.getNumSections(); ++i)
            {
                const auto section = sections.getSection (i);
                EXPECT_EQ (section.firstSample + section.numSamples,
                           plan.feedStart + (plan.leadFrames + section.endFrame) * plan.analysis.samplesPerFrame);
            }
        });
}

TEST (SectionPlan, ASectionBeginsWithTheEndOfTheOneBeforeIt)
{
    forEachPlan (
        [] (const RenderPlan&, const SectionPlan& sections, bool)
        {
            for (std::int64_t i = 1; i < sections.getNumSections(); ++i)
            {
                const auto before = sections.getSection (i - 1);
                ASSERT_EQ (sections.getSection (i).firstSample,
                           before.firstSample + before.numSamples - sections.getOverlap());
                ASSERT_GE (before.numSamples, sections.getOverlap());
            }
        });
}

TEST (SectionPlan, EveryWindowOfASectionIsFullOfAudio)
{
    forEachPlan (
        [] (const RenderPlan& plan, const SectionPlan& sections, bool enhanced)
        {
            // The window of the first frame that counts. In Enhanced, frames up to a window's length earlier count,
            // since their points may lie in the first column.
            const auto span = enhanced ? plan.windowLength : 0;
            EXPECT_GE (sections.leadFrames * sections.hop, span);

            if (sections.hop < plan.windowLength - 1)
            {
                EXPECT_GE (sections.warmUpSamples, plan.windowLength - 1);
            }

            // No section reads audio from before the place where the analysis of the whole picture starts.
            EXPECT_GE (sections.getSection (0).firstSample, plan.feedStart);
        });
}

TEST (SectionPlan, SectionsOfALongPictureAreLongAgainstTheirLeadAndTakeLittleMemory)
{
    forEachPlan (
        [] (const RenderPlan&, const SectionPlan& sections, bool)
        {
            EXPECT_LE (sections.getSection (0).numSamples, 1 << 20);

            if (sections.getNumSections() > 64 * 8)
            {
                EXPECT_GE (sections.framesPerSection, 32 * (sections.leadFrames + 1));
            }
        });
}

TEST (SectionPlan, TheLengthOfALongPictureChangesOnlyTheNumberOfItsSections)
{
    const HopSettings hop { 2048, 44100.0, 40.0f, false, true };
    const auto minutes = [&] (int n) {
        return makeSectionPlan (makePlan ({ hop, 0, std::int64_t (n) * 60 * 44100, 4096 }), true, 2);
    };

    EXPECT_EQ (minutes (60).framesPerSection, minutes (5).framesPerSection);
    EXPECT_EQ (minutes (60).getSection (0).numSamples, minutes (5).getSection (0).numSamples);
}

TEST (SectionPlan, AShortPictureHasWorkForAllThreads)
{
    const auto plan = makePlan ({ { 2048, 44100.0, 40.0f, false, false }, 0, 10 * 44100, 0 });
    EXPECT_GE (makeSectionPlan (plan, false, 4).getNumSections(), 16);
}

} // namespace mk::orlo::test
