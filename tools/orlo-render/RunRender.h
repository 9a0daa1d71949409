// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "CommandLine.h"
#include "Renderer.h"

namespace mk::orlo::render
{

/** Makes the picture, and the levels if they are asked for. Throws RenderError; then neither file is there, or
    what was there before still is. */
void run (const RenderOptions& options, const Progress& progress);

} // namespace mk::orlo::render
