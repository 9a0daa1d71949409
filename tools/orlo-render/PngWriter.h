// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "IndexedPicture.h"

namespace mk::orlo::render
{

/** Writes the picture as a PNG with a palette, or, in the rare case of more than 256 colours, in true colour.
    The same picture always gives the same bytes. What becomes of them is the stream's to tell.

    A spectrogram's neighbouring rows are alike and its palette runs from quiet to loud, so the differences
    between rows are small numbers that compress well with little effort. The general way, true colour with the
    filter chosen for each row, takes longer than the whole analysis, for files half as large again. */
void writePng (const IndexedPicture& picture, juce::OutputStream& stream);

} // namespace mk::orlo::render
