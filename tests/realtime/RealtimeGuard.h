// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo::test
{

/** Counts of the operations that are forbidden on an audio thread, or while a lock is held. */
struct RealtimeViolations
{
    int allocations = 0;             /**< malloc and its family, new, and the freeing of memory. */
    int locks = 0;                   /**< Mutexes and read-write locks taken. */
    int fileOperations = 0;          /**< read, fsync and rename. */
    int fileOperationsUnderLock = 0; /**< Those of them while the thread held a mutex. */
};

/** Counts what the calling thread allocates, frees, locks, reads and writes during its lifetime.

    The C library's functions are replaced for the whole program, so calls from any library are counted.
    Only one guard may exist at a time on each thread.
*/
class RealtimeGuard
{
public:
    RealtimeGuard() noexcept;
    ~RealtimeGuard();

    [[nodiscard]] RealtimeViolations getViolations() const noexcept;

    RealtimeGuard (const RealtimeGuard&) = delete;
    RealtimeGuard& operator= (const RealtimeGuard&) = delete;
};

} // namespace mk::orlo::test
