// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SectionPlan.h"

#include "orlo/analysis/ColumnMapper.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
// Half a megabyte of samples, which stay in a core's own cache.
constexpr int samplesPerSection = 131072;

// How many times longer a section is than what is analysed before it and thrown away: where the picture is long
// enough, and at least.
constexpr int framesPerFrameBefore = 32;
constexpr int fewestFramesPerFrameBefore = 4;

// The threads end at different times, at most one section apart.
constexpr int sectionsPerThread = 8;

[[nodiscard]] int chooseFramesPerSection (const SectionPlan& plan, int numThreads) noexcept
{
    // Filling the window takes one transform.
    const auto framesBefore = plan.leadFrames + 1;
    const auto shortest = fewestFramesPerFrameBefore * framesBefore;
    const auto longest = std::max (framesPerFrameBefore * framesBefore, samplesPerSection / plan.hop);
    const auto share = plan.numFrames / (std::int64_t (numThreads) * sectionsPerThread) + 1;

    return int (std::clamp<std::int64_t> (share, shortest, longest));
}
} // namespace

Section SectionPlan::getSection (std::int64_t index) const noexcept
{
    Section section;
    section.index = index;
    section.firstFrame = index * framesPerSection;
    section.endFrame = std::min (section.firstFrame + framesPerSection, numFrames);
    section.firstSample = pictureStart + section.firstFrame * hop - getOverlap();
    section.numSamples = getOverlap() + (section.endFrame - section.firstFrame) * hop;
    return section;
}

SectionPlan makeSectionPlan (const RenderPlan& plan, bool enhanced, int numThreads) noexcept
{
    SectionPlan sections;
    sections.hop = plan.analysis.samplesPerFrame;
    sections.numFrames = plan.getNumPictureFrames();
    sections.pictureStart = plan.feedStart + plan.leadFrames * sections.hop;

    // A column is complete with the frame that outputs it, and the other frames of the history come before that.
    if (enhanced)
        sections.leadFrames = ColumnMapper::getHistoryLength (plan.windowLength, sections.hop) - 1;

    // The window's last sample stays zero, so a hop of one sample less replaces everything in it.
    if (sections.hop < plan.windowLength - 1)
        sections.warmUpSamples = plan.windowLength - 1;

    sections.framesPerSection = chooseFramesPerSection (sections, numThreads);
    return sections;
}

} // namespace mk::orlo
