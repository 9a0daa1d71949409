// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "WindowType.h"

#include <atomic>
#include <cstdint>

namespace mk::orlo
{

/** The length and shape of the worker's windows and the padding of its transforms. */
struct AnalysisConfig
{
    int windowLength = 1023;                 /**< Samples. The product uses one less than a power of two. */
    int paddingMode = 0;                     /**< 0: none, 1: twice the transform, 2: four times. Others count as 0. */
    int windowType = int (WindowType::hann); /**< A WindowType. */

    bool operator== (const AnalysisConfig&) const noexcept = default;
};

/** An AnalysisConfig that one thread writes and others read, wait-free on both sides.

    The struct is too large for a lock-free atomic, but its values are small, so they are packed into one
    64-bit word: 32 bits for the length and 16 bits for each of the other two.
*/
class AtomicAnalysisConfig
{
public:
    explicit AtomicAnalysisConfig (AnalysisConfig initial) noexcept : word (pack (initial)) {}

    /** Any thread. Wait-free. paddingMode and windowType must lie in 0 .. 65535. */
    void store (AnalysisConfig config) noexcept { word.store (pack (config), std::memory_order_seq_cst); }

    /** Any thread. Wait-free. */
    [[nodiscard]] AnalysisConfig load() const noexcept { return unpack (word.load (std::memory_order_seq_cst)); }

private:
    [[nodiscard]] static constexpr std::uint64_t pack (AnalysisConfig config) noexcept
    {
        return (std::uint64_t (std::uint32_t (config.windowLength)) << 32)
               | (std::uint64_t (std::uint16_t (config.paddingMode)) << 16)
               | std::uint64_t (std::uint16_t (config.windowType));
    }

    [[nodiscard]] static constexpr AnalysisConfig unpack (std::uint64_t packed) noexcept
    {
        return { int (std::uint32_t (packed >> 32)), int ((packed >> 16) & 0xffff), int (packed & 0xffff) };
    }

    std::atomic<std::uint64_t> word;

    static_assert (std::atomic<std::uint64_t>::is_always_lock_free);
};

} // namespace mk::orlo
