// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "CommandLine.h"
#include "Renderer.h"

namespace mk::orlo::render
{

/** Makes the picture, and the levels if they are asked for. On failure throws RenderError and leaves no new
    file; existing files stay unchanged. */
void run (const RenderOptions& options, const Progress& progress);

} // namespace mk::orlo::render
