// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LevelAssembler.h"

namespace mk::orlo
{

LevelAssembler::LevelAssembler (LevelGrid& levelGrid, Finish finishColumn)
    : grid (levelGrid), finish (std::move (finishColumn))
{
}

void LevelAssembler::SectionInput::take (const ColumnReducer::Part& part)
{
    if (! part.hasFirst)
    {
        seam.emplace (Seam { part.pixel, part.hasLast, std::move (part.merged) });
        return;
    }

    if (part.hasLast)
        assembler.finish (part.merged);

    assembler.grid.setColumn (part.pixel, part.merged);
}

void LevelAssembler::complete (std::int64_t index, SectionInput&& input)
{
    const std::lock_guard lock (mutex);
    waiting.emplace (index, std::move (input));

    for (auto next = waiting.begin(); next != waiting.end() && next->first == nextIndex; ++nextIndex)
    {
        if (next->second.seam)
            merge (*next->second.seam);

        next = waiting.erase (next);
    }
}

void LevelAssembler::merge (const SectionInput::Seam& seam)
{
    const auto before = grid.getColumn (seam.pixel);
    Column merged (before.begin(), before.end());
    mergeColumns (merged, seam.merged);

    if (seam.hasLast)
        finish (merged);

    grid.setColumn (seam.pixel, merged);
}

} // namespace mk::orlo
