// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/SectionReader.h"

#include "AudioFiles.h"
#include "FileFolder.h"
#include "tools/orlo-render/AudioSource.h"
#include "tools/orlo-render/RenderError.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;

constexpr double rate = 44100.0;
constexpr int length = 300000;

class SectionReaderTest : public testing::Test
{
protected:
    [[nodiscard]] static SectionPlan makeSections (bool enhanced, std::int64_t start = 0)
    {
        return makeSectionPlan (
            makePlan ({ { 1024, rate, 40.0f, false, enhanced }, start, length - start, 0 }), enhanced, 4);
    }

    const FileFolder folder {};
    const Samples signal = makeQuietNoise (length);
};

TEST_F (SectionReaderTest, GivesEachSectionItsSamplesAndSilenceAroundTheFile)
{
    for (const auto* const name : { "a.wav", "a.flac" })
    {
        const auto file = folder.getFile (name);
        writeAudioFile (file, { signal }, rate, 24);

        for (const auto enhanced : { false, true })
            for (const std::int64_t start : { 0, 100000 })
            {
                AudioSource source (file), again (file);
                const auto plan = makeSections (enhanced, start);
                ASSERT_GT (plan.getNumSections(), 8);
                SectionReader reader (source, plan);

                // The whole file, with silence before and after it.
                constexpr std::int64_t margin = 8192;
                std::vector<float> audio (size_t (length + 2 * margin));
                again.read (-margin, audio);

                Section section;
                std::vector<float> samples;

                for (std::int64_t i = 0; i < plan.getNumSections(); ++i)
                {
                    ASSERT_TRUE (reader.next (section, samples));
                    ASSERT_EQ (section.index, i);
                    const auto expected =
                        std::span (audio).subspan (size_t (section.firstSample + margin), size_t (section.numSamples));
                    ASSERT_TRUE (std::equal (samples.begin(), samples.end(), expected.begin(), expected.end()))
                        << name << " " << enhanced << " " << i;
                }

                EXPECT_FALSE (reader.next (section, samples));
            }
    }
}

TEST_F (SectionReaderTest, ThrowsAtTheSectionThatTheFileHasNoSamplesFor)
{
    const auto flac = folder.getFile ("a.flac");
    writeAudioFile (flac, { signal }, rate, 16);
    truncateFile (flac, flac.getSize() / 2);

    AudioSource source (flac);
    const auto plan = makeSections (true);
    SectionReader reader (source, plan);
    Section section;
    std::vector<float> samples;
    std::int64_t numRead = 0;

    const auto readAll = [&]
    {
        while (reader.next (section, samples))
            ++numRead;
    };

    EXPECT_THROW (readAll(), RenderError);
    EXPECT_GT (numRead, 0);
    EXPECT_LT (numRead, plan.getNumSections());
}

} // namespace
} // namespace mk::orlo::test
