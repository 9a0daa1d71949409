// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "RenderSettings.h"
#include "orlo/analysis/ColumnMapper.h"
#include "orlo/analysis/FrequencyScale.h"

namespace mk::orlo
{

/** Turns frames into columns that can be merged by maximum, and merged columns into levels. One thread at a time, but
    made and destroyed on the message thread. */
class ColumnMaker
{
public:
    explicit ColumnMaker (const RenderSettings& settings);

    /** The column that the next frame completes. Valid until the next call. */
    [[nodiscard]] const Column& make (const Frame& frame);

    /** Turns a merged column into levels, in place. Any thread. */
    void finish (Column& merged) const noexcept;

private:
    const ShownRange range;
    const bool mergesMagnitudes;
    FrequencyScale scale;
    ClassicColumnMapper classic;
    ColumnMapper mapper;
    Column column;
};

} // namespace mk::orlo
