// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HostNotes.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace mk::orlo
{
namespace
{
// Hosts round their positions. A ten-thousandth of a quarter note is 50 microseconds at 120 a minute.
constexpr double tolerance = 1.0e-4;

/** Whether two numbers are the same, also if both are NaN. */
[[nodiscard]] bool isSame (double left, double right) noexcept
{
    return std::bit_cast<std::uint64_t> (left) == std::bit_cast<std::uint64_t> (right);
}

[[nodiscard]] bool isNear (double left, double right) noexcept { return std::abs (left - right) <= tolerance; }

/** Whether a later note says nothing that the earlier one does not. */
[[nodiscard]] bool follows (const HostNote& later, const HostNote& earlier, double sampleRate) noexcept
{
    if (later.isKnown() != earlier.isKnown())
        return false;

    if (! later.isKnown())
        return true;

    return isSame (later.quartersPerMinute, earlier.quartersPerMinute) && later.numerator == earlier.numerator
           && later.denominator == earlier.denominator
           && isNear (later.quarters, earlier.getQuartersAt (later.position, sampleRate))
           && (isSame (later.barStart, earlier.barStart) || isNear (later.barStart, earlier.barStart));
}
} // namespace

HostNotes::HostNotes() : slots (std::make_unique<Slot[]> (size_t (capacity))) {}

void HostNotes::add (const HostNote& note, double sampleRate) noexcept
{
    // Before the first note nothing is known.
    if (follows (note, last, sampleRate))
        return;

    last = note;
    const auto index = complete.load (std::memory_order_relaxed);
    auto& slot = slots[size_t (index % capacity)];

    // A reader that sees any of the new values sees this count, too.
    begun.store (index + 1, std::memory_order_relaxed);
    slot.position.store (note.position, std::memory_order_release);
    slot.quarters.store (note.quarters, std::memory_order_release);
    slot.barStart.store (note.barStart, std::memory_order_release);
    slot.quartersPerMinute.store (note.quartersPerMinute, std::memory_order_release);
    slot.signature.store ((std::int64_t (note.numerator) << 32) | std::uint32_t (note.denominator),
                          std::memory_order_release);
    complete.store (index + 1, std::memory_order_release);
}

bool HostNotes::read (std::int64_t index, HostNote& note) const noexcept
{
    const auto& slot = slots[size_t (index % capacity)];
    note.position = slot.position.load (std::memory_order_acquire);
    note.quarters = slot.quarters.load (std::memory_order_acquire);
    note.barStart = slot.barStart.load (std::memory_order_acquire);
    note.quartersPerMinute = slot.quartersPerMinute.load (std::memory_order_acquire);
    const auto signature = slot.signature.load (std::memory_order_acquire);
    note.numerator = int (signature >> 32);
    note.denominator = int (signature & 0xffffffff);
    return begun.load (std::memory_order_relaxed) - capacity <= index;
}

HostNote HostNotes::find (std::int64_t position) const noexcept
{
    const auto count = complete.load (std::memory_order_acquire);
    auto low = std::max<std::int64_t> (0, begun.load (std::memory_order_relaxed) - capacity);
    auto high = count;
    HostNote note, found;

    // The newest note that is not later. One that has been overwritten meanwhile was too old.
    while (low < high)
    {
        const auto middle = low + (high - low) / 2;
        const auto isLeft = read (middle, note);

        if (isLeft && note.position > position)
        {
            high = middle;
            continue;
        }

        found = isLeft ? note : HostNote {};
        low = middle + 1;
    }

    return found;
}

std::vector<HostNote> HostNotes::getAll() const
{
    std::vector<HostNote> all;
    const auto count = complete.load (std::memory_order_acquire);
    HostNote note;

    for (auto i = std::max<std::int64_t> (0, count - capacity); i < count; ++i)
        if (read (i, note))
            all.push_back (note);

    return all;
}

} // namespace mk::orlo
