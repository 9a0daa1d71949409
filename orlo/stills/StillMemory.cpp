// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillMemory.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
// The magnitudes and the levels of two pictures, the shown one and the next.
constexpr size_t mostSpares = 4;

// 64 megabytes: what is larger is a file's picture, and made once.
constexpr size_t largestSpare = size_t (1) << 24;
} // namespace

StillMemory::Block StillMemory::obtain (size_t count)
{
    auto values = takeSpare (count);
    return wrap (values != nullptr ? std::move (values) : std::make_unique_for_overwrite<float[]> (count), count);
}

StillMemory::Block StillMemory::obtainCleared (size_t count)
{
    if (auto values = takeSpare (count))
    {
        std::fill_n (values.get(), count, 0.0f);
        return wrap (std::move (values), count);
    }

    return wrap (std::make_unique<float[]> (count), count);
}

std::unique_ptr<float[]> StillMemory::takeSpare (size_t count)
{
    const std::lock_guard lock (mutex);
    const auto found =
        std::find_if (spares.begin(), spares.end(), [count] (const Spare& spare) { return spare.count == count; });

    if (found == spares.end())
        return nullptr;

    auto values = std::move (found->values);
    spares.erase (found);
    return values;
}

StillMemory::Block StillMemory::wrap (std::unique_ptr<float[]> values, size_t count)
{
    auto bringBack = [memory = weak_from_this(), count] (float* block)
    {
        std::unique_ptr<float[]> owned (block);

        if (const auto owner = memory.lock())
            owner->giveBack (std::move (owned), count);
    };

    return { values.release(), std::move (bringBack) };
}

void StillMemory::giveBack (std::unique_ptr<float[]> values, size_t count)
{
    if (count > largestSpare)
        return;

    std::unique_ptr<float[]> dropped; // freed outside of the lock
    const std::lock_guard lock (mutex);

    if (spares.size() == mostSpares)
    {
        dropped = std::move (spares.front().values);
        spares.erase (spares.begin());
    }

    spares.push_back ({ std::move (values), count });
}

} // namespace mk::orlo
