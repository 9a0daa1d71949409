// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo::test
{

/** What a thread did that an audio thread must not do. */
struct RealtimeViolations
{
    int allocations = 0; /**< malloc and its family, new, and the freeing of memory. */
    int locks = 0;       /**< Mutexes and read-write locks taken. */
};

/** Counts what the calling thread allocates, frees and locks during its lifetime.

    The C library's own functions are replaced for the whole program, so nothing that the code under test
    calls goes unseen, in whichever library it stands. One at a time for each thread.
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
