// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

namespace mk::orlo::test
{

// When a reader and a writer run at the same moment, the reader reads often. A busy machine lets them run in turns, so
// after many writes a few reads are enough. ThreadSanitizer sees a race at the first read.
inline constexpr int manyReads = hasThreadSanitizer ? 1000 : 20000;
inline constexpr int manyWrites = hasThreadSanitizer ? 50000 : 1000000;
inline constexpr int fewReads = 20;

/** Writes on its own thread without a pause until it is destroyed. */
class RingWriter
{
public:
    explicit RingWriter (std::function<void (int)> functionToRepeat) : writeNext (std::move (functionToRepeat)) {}

    ~RingWriter()
    {
        stopRequested.store (true, std::memory_order_release);
        thread.join();
    }

    [[nodiscard]] bool isWantedBy (int numReads) const
    {
        const auto isEnough = numWrites.load (std::memory_order_acquire) > manyWrites && numReads >= fewReads;
        return numReads < manyReads && ! isEnough && ! testing::Test::HasFailure();
    }

private:
    void run()
    {
        for (int i = 1; ! stopRequested.load (std::memory_order_acquire); ++i)
        {
            writeNext (i);
            numWrites.store (i, std::memory_order_release);
        }
    }

    const std::function<void (int)> writeNext;
    std::atomic<bool> stopRequested { false };
    std::atomic<int> numWrites { 0 };
    std::thread thread { [this] { run(); } };
};

} // namespace mk::orlo::test
