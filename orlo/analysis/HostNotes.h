// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HostNote.h"

#include <atomic>
#include <memory>
#include <vector>

namespace mk::orlo
{

/** What the host told about the kept sound, note by note. A block whose note follows from the one before it adds none,
    so that the notes of a song at one tempo take no room, and those of a changing tempo reach back for some minutes.

    One thread writes, others read at the same time without waiting.
*/
class HostNotes
{
public:
    /** Allocates all that is ever needed. */
    HostNotes();

    /** [writer] Notes what the host told about the block that starts at note.position, if that does not follow from
        the last note. Positions never fall. Wait-free. */
    void add (const HostNote& note, double sampleRate) noexcept;

    /** Any thread. The newest note at or before the position; not isKnown() if there is none. Wait-free. */
    [[nodiscard]] HostNote find (std::int64_t position) const noexcept;

    /** Any thread. All notes that are left, oldest first. Allocates. */
    [[nodiscard]] std::vector<HostNote> getAll() const;

    /** How many notes fit in. */
    static constexpr std::int64_t capacity = 16384;

private:
    /** A note whose parts are atomic: writer and readers may meet at it. */
    struct Slot
    {
        std::atomic<std::int64_t> position { 0 };
        std::atomic<double> quarters { 0.0 }, barStart { 0.0 }, quartersPerMinute { 0.0 };
        std::atomic<std::int64_t> signature { 0 };
    };

    /** Any thread. False if the note has been overwritten. */
    [[nodiscard]] bool read (std::int64_t index, HostNote& note) const noexcept;

    std::unique_ptr<Slot[]> slots;
    HostNote last; // used by the writer only

    // Counts of notes, written by the writer, read by any thread.
    std::atomic<std::int64_t> begun { 0 }, complete { 0 };
};

} // namespace mk::orlo
