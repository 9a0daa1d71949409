// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AudioSource.h"
#include "orlo/stills/LevelGrid.h"
#include "orlo/stills/RenderPlan.h"
#include "orlo/stills/RenderSettings.h"

#include <functional>

namespace mk::orlo::render
{

/** Called with the share that is done, 0 .. 1. Returns whether to go on. */
using Progress = std::function<bool (double done)>;

/** Analyses the audio as planned and returns the levels of the picture, which do not depend on the number of threads.

    The work is done by that many threads. The calling one waits and reports the progress several times a second, with
    shares that never fall, and with 1 at the end. The memory depends on the picture's size and the number of threads, not on the
    file's length. Throws RenderError if the audio cannot be read, or if the progress function returns false.
    [message thread]
    @param numThreads  at least 1; no more are used than can be kept busy */
[[nodiscard]] LevelGrid renderLevels (AudioSource& source,
                                      const RenderPlan& plan,
                                      const RenderSettings& settings,
                                      int numThreads,
                                      const Progress& progress);

} // namespace mk::orlo::render
