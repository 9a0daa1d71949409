// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColumnReducer.h"
#include "LevelGrid.h"

#include <map>
#include <mutex>
#include <optional>

namespace mk::orlo
{

/** Puts a picture together from its sections, which may come in any order and from several threads.

    A pixel that begins in a section is written at once. What a section has of a pixel that began before it is kept
    until the sections before it are done, so that the order of merging, and with it the picture, is always the same. */
class LevelAssembler
{
public:
    /** Turns the merged column of a pixel into levels. Any thread. */
    using Finish = std::function<void (Column& merged)>;

    /** The grid must outlive the assembler. */
    LevelAssembler (LevelGrid& grid, Finish finish);

    /** What one section brings. Used by one thread. */
    class SectionInput
    {
    public:
        explicit SectionInput (LevelAssembler& owner) noexcept : assembler (owner) {}

        /** Takes the next part, and its column. */
        void take (const ColumnReducer::Part& part);

    private:
        friend class LevelAssembler;

        /** The part of a pixel that began in an earlier section. */
        struct Seam
        {
            int pixel;
            bool hasLast;
            Column merged;
        };

        LevelAssembler& assembler;
        std::optional<Seam> seam;
    };

    /** Any thread. Says that a section has brought all of its parts.
        @param index  of the section; each comes once */
    void complete (std::int64_t index, SectionInput&& input);

private:
    void merge (const SectionInput::Seam& seam);

    LevelGrid& grid;
    const Finish finish;

    std::mutex mutex; // guards the members below, and the pixels that several sections share
    std::map<std::int64_t, SectionInput> waiting;
    std::int64_t nextIndex = 0;
};

} // namespace mk::orlo
