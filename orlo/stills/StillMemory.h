// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace mk::orlo
{

/** Keeps the memory of pictures that are gone for those that come: to get the same amount from the system again takes as
    long as much of the analysis, since each page is then handed out and cleared at its first use. Any thread. */
class StillMemory final : public std::enable_shared_from_this<StillMemory>
{
public:
    using Block = std::shared_ptr<float[]>;

    /** A block whose values are anything, or all zero. Comes back here when nobody holds it any more, unless this object is
        gone by then. Throws std::bad_alloc. */
    [[nodiscard]] Block obtain (size_t count);
    [[nodiscard]] Block obtainCleared (size_t count);

private:
    struct Spare
    {
        std::unique_ptr<float[]> values;
        size_t count;
    };

    [[nodiscard]] std::unique_ptr<float[]> takeSpare (size_t count);
    [[nodiscard]] Block wrap (std::unique_ptr<float[]> values, size_t count);
    void giveBack (std::unique_ptr<float[]> values, size_t count);

    std::mutex mutex;          // guards the member below
    std::vector<Spare> spares; // the newest last
};

} // namespace mk::orlo
