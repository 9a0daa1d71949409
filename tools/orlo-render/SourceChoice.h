// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/Source.h"

#include <juce_core/juce_core.h>

namespace mk::orlo::render
{

/** Which channels of a file are shown: a source, or a single channel. Left and right are the first two channels. */
struct SourceChoice
{
    Source source = Source::mean;
    int channel = -1; /**< From 0 on; below 0 the source decides. */

    bool operator== (const SourceChoice&) const noexcept = default;
};

/** Reads the name of a source or the number of a channel, from 1 on. Throws RenderError for another text. */
[[nodiscard]] SourceChoice parseSource (const juce::String& text);

} // namespace mk::orlo::render
