// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ClassicColumnMapper.h"
#include "ColumnSettings.h"
#include "EnhancedColumnPlotter.h"
#include "FrameBin.h"

namespace mk::orlo
{

class FrequencyScale;

/** Turns frames, one after the other, into columns of levels.

    A reassigned point may lie anywhere in its window, so the columns of one window's span are kept as a
    history that every frame adds to; the oldest column is output once no later frame can add to it.
    In Enhanced the picture therefore lags by about a window. The history's columns belong to frames of one
    format, so it is cleared whenever the format changes. One thread at a time.
*/
class ColumnMapper
{
public:
    /** Sets the scale to the settings' range, maps the frame and the others that belong to it, of which the loudest
        show, and writes settings.numRows levels into column. Allocates only when sizes change. */
    void map (const Frame& frame, const ColumnSettings& settings, FrequencyScale& scale, Column& column);

    /** How many columns a window's span touches, that is, how many are kept. Both in samples, hop at least 1. */
    [[nodiscard]] static int getHistoryLength (int windowLength, int hop) noexcept;

private:
    void startAnewIfFormatChanged (const FrameFormat& newFormat);
    void shiftHistory (const ColumnSettings& settings);

    /** Each bin of the frame and of the others as loud as the loudest of them. */
    [[nodiscard]] const Frame& mergeLoudest (const Frame& frame);

    ClassicColumnMapper classic;
    EnhancedColumnPlotter enhanced;
    FrameFormat format;          // of the frames in the history
    std::vector<Column> history; // oldest first
    Frame loudest;               // a member, so that a call does not allocate
};

} // namespace mk::orlo
