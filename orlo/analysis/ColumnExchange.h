// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColourMap.h"
#include "ColumnSettings.h"

#include <array>
#include <atomic>
#include <memory>
#include <vector>

namespace mk::orlo
{

/** The columns that the image builder finished at one tick, and how the picture paints them. */
struct ColumnBatch
{
    std::vector<Column> columns;
    std::shared_ptr<const ColourMap> map;
    juce::uint32 zeroColour = 0xff000000; /**< ARGB of a level of 0 or less. */
    int width = 0, height = 0;            /**< Of the picture that they are made for; 0 if it has no size. */
    bool scroll = false;                  /**< Scroll when true, Static when false. */
};

/** Hands finished columns from the image builder to the view, wait-free on both sides.

    There are two queues of batches. The builder appends to one and leaves it for the view; if the view has not
    fetched it by the next tick, the builder takes it back and appends to it, so no column is lost and their order
    is kept. The memory of batches and columns is used again.
*/
class ColumnExchange
{
public:
    /** [builder] Hands the batch's content over. The batch gets old content, whose memory may be used again. */
    void push (ColumnBatch& batch);

    /** [view] Calls the action with every batch that waits, oldest first. */
    template <typename Action>
    void takeAll (Action&& action)
    {
        const auto index = waiting.exchange (none, std::memory_order_acq_rel);

        if (index == none)
            return;

        auto& queue = queues[size_t (index)];

        for (size_t i = 0; i < queue.numUsed; ++i)
            action (queue.batches[i]);

        queue.numUsed = 0;
        freeQueues.fetch_or (1 << index, std::memory_order_release);
    }

private:
    // Each on its own cache line, since two threads write to neighbouring queues.
    struct alignas (128) Queue
    {
        std::vector<ColumnBatch> batches;
        size_t numUsed = 0;
    };

    static constexpr int none = -1;

    [[nodiscard]] int takeQueue() noexcept;

    std::array<Queue, 2> queues;
    std::atomic<int> waiting { none };     // the queue left for the view
    std::atomic<int> freeQueues { 1 | 2 }; // bits; set by the view, cleared by the builder

    static_assert (std::atomic<int>::is_always_lock_free);
};

} // namespace mk::orlo
