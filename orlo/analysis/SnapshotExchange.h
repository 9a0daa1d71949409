// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Snapshot.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace mk::orlo
{

/** Hands finished pictures from the image builder to the view, wait-free on both sides.

    There are three holders. At any time the builder owns one (back), the view owns one (front), and the
    third waits in between; publish() and getFront() swap their side's holder for the waiting one. A
    picture that the view did not take in time is replaced.
*/
class SnapshotExchange
{
public:
    SnapshotExchange() noexcept;

    /** [builder] The snapshot to draw the next picture into. Holds an earlier picture. */
    [[nodiscard]] Snapshot& getBack() noexcept { return back->snapshot; }

    /** [builder] Hands the back picture over; getBack() gives another one afterwards. */
    void publish() noexcept;

    /** [view] The newest picture published, or the same as before if there is no newer one; null before
        the first. Stays untouched until the next call. */
    [[nodiscard]] const juce::Image& getFront() noexcept;

private:
    // Each on its own cache line, since two threads write to neighbouring holders.
    struct alignas (128) Holder
    {
        Snapshot snapshot;
    };

    static constexpr std::uintptr_t freshBit = 1;

    std::array<Holder, 3> holders;
    Holder* back;
    Holder* front;
    std::atomic<std::uintptr_t> waiting; // a holder's address, and freshBit if the view has not seen it

    static_assert (std::atomic<std::uintptr_t>::is_always_lock_free);
};

} // namespace mk::orlo
