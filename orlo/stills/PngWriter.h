// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "IndexedPicture.h"

namespace mk::orlo
{

/** Writes the picture as a PNG with a palette, or, in the rare case of more than 256 colours, in true colour.
    The same picture always gives the same bytes. Failed writes are reported by the stream only.

    A spectrogram's neighbouring rows are similar and its palette runs from quiet to loud, so the differences
    between rows are small numbers that compress well with little effort. True colour with a filter chosen for
    each row, the general approach, takes longer than the whole analysis and gives files 1.5 times as large. */
void writePng (const IndexedPicture& picture, juce::OutputStream& stream);

} // namespace mk::orlo
