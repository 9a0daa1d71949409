// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AudioSource.h"
#include "LevelGrid.h"
#include "RenderPlan.h"

#include <functional>

namespace mk::orlo::render
{

/** The settings that columns are made with. */
struct RenderSettings
{
    HopSettings hop;
    float floorDb = -100.0f;
    float ceilingDb = 0.0f;
    float minFreqFraction = 0.0f; /**< Of half the sample rate, as maxFreqFraction. */
    float maxFreqFraction = 1.0f;
    int scaleType = 0; /**< A FrequencyScale::Type. */
    int height = 1024; /**< Pixels. */
};

/** Called with the share that is done, 0 .. 1. Returns whether to go on. */
using Progress = std::function<bool (double done)>;

/** Analyses the audio as planned and returns the levels of the picture. Uses one thread besides the calling
    one, and memory that depends only on the picture's size. Throws RenderError if the audio cannot be read,
    or if the progress function returns false. */
[[nodiscard]] LevelGrid renderLevels (AudioSource& source,
                                      const RenderPlan& plan,
                                      const RenderSettings& settings,
                                      const Progress& progress);

} // namespace mk::orlo::render
