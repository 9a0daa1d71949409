// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AudioSource.h"
#include "LevelGrid.h"
#include "RenderPlan.h"

#include <functional>

namespace mk::orlo::render
{

/** How the columns are made. */
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

/** Gets the share that is done, 0 .. 1, and says whether to go on. */
using Progress = std::function<bool (double done)>;

/** Analyses the audio as planned and returns the levels of the picture. Uses one thread besides the calling
    one, and memory that depends on the picture's size alone. Throws RenderError when the audio cannot be read,
    or when the progress says to stop. */
[[nodiscard]] LevelGrid renderLevels (AudioSource& source,
                                      const RenderPlan& plan,
                                      const RenderSettings& settings,
                                      const Progress& progress);

} // namespace mk::orlo::render
