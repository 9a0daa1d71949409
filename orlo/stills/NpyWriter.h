// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LevelGrid.h"

#include <juce_core/juce_core.h>

namespace mk::orlo
{

/** Writes the levels as a NumPy array file (version 1.0): float32, rows by columns in C order, row 0 the
    topmost. Failed writes are reported by the stream only. */
void writeNpy (const LevelGrid& levels, juce::OutputStream& stream);

/** Writes the beginning of such a file, after which its floats have to be written row by row. */
void writeNpyHeader (int numRows, int numColumns, juce::OutputStream& stream);

} // namespace mk::orlo
