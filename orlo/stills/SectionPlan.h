// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "RenderPlan.h"

namespace mk::orlo
{

/** A run of a picture's frames that is analysed by itself. */
struct Section
{
    std::int64_t index = 0;                    /**< Among the picture's sections, from the left. */
    std::int64_t firstFrame = 0, endFrame = 0; /**< Counted from the picture's first; the end is the frame after the
                                                    last. */
    std::int64_t firstSample = 0;              /**< In the file, of what the section is made from; may be negative. */
    std::int64_t numSamples = 0;
};

/** How the frames of a picture are cut into sections that give the same columns as the frames in one piece.

    A column depends on the audio in the window, and in Enhanced on the frames before it whose points may still lie in
    it. So a section starts with audio that only fills the window, and with frames that only plot points. */
struct SectionPlan
{
    std::int64_t numFrames = 0;    /**< Of the picture. */
    std::int64_t pictureStart = 0; /**< The first sample of the first frame's hop, in the file; may be negative. */
    int hop = 1;                   /**< Samples. */
    int framesPerSection = 1;      /**< The last section may have fewer. */
    int leadFrames = 0;            /**< Mapped before a section's own frames, for the points that they add to those. */
    int warmUpSamples = 0;         /**< Audio before the lead, which fills the window. */

    [[nodiscard]] std::int64_t getNumSections() const noexcept
    {
        return (numFrames + framesPerSection - 1) / framesPerSection;
    }

    /** The frames of all sections, with those of their leads. */
    [[nodiscard]] std::int64_t getNumFramesToMake() const noexcept { return numFrames + getNumSections() * leadFrames; }

    /** The samples that a section starts with and that the one before it ends with. */
    [[nodiscard]] std::int64_t getOverlap() const noexcept { return std::int64_t (leadFrames) * hop + warmUpSamples; }

    /** @param index  0 .. getNumSections() - 1 */
    [[nodiscard]] Section getSection (std::int64_t index) const noexcept;
};

/** Sections long enough that the lead costs little, and short enough that they take little memory and that a short
    picture keeps all threads busy. Any thread, no allocation.
    @param plan        with a hop of at least 1
    @param enhanced    whether frames are reassigned
    @param numThreads  at least 1 */
[[nodiscard]] SectionPlan makeSectionPlan (const RenderPlan& plan, bool enhanced, int numThreads) noexcept;

} // namespace mk::orlo
