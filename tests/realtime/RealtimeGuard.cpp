// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RealtimeGuard.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>

namespace mk::orlo::test
{
namespace
{
thread_local bool guarding = false;
thread_local RealtimeViolations violations;
thread_local int numMutexesHeld = 0;

void countAllocation() noexcept
{
    if (guarding)
        ++violations.allocations;
}

void countLock() noexcept
{
    if (guarding)
        ++violations.locks;
}

/** Counts a mutex that was locked or, with -1, unlocked. */
void countMutex (int difference) noexcept { numMutexesHeld += difference; }

void countFileOperation() noexcept
{
    if (guarding)
    {
        ++violations.fileOperations;
        violations.fileOperationsUnderLock += numMutexesHeld > 0 ? 1 : 0;
    }
}

template <typename Function>
[[nodiscard]] Function next (const char* name) noexcept
{
    return reinterpret_cast<Function> (dlsym (RTLD_NEXT, name));
}
} // namespace

RealtimeGuard::RealtimeGuard() noexcept
{
    violations = {};
    guarding = true;
}

RealtimeGuard::~RealtimeGuard() { guarding = false; }

RealtimeViolations RealtimeGuard::getViolations() const noexcept { return violations; }

} // namespace mk::orlo::test

//==============================================================================
// The program's definitions take precedence over the C library's functions, and call them.
using mk::orlo::test::countAllocation;
using mk::orlo::test::countFileOperation;
using mk::orlo::test::countLock;
using mk::orlo::test::countMutex;
using mk::orlo::test::next;

extern "C"
{
    void* __libc_malloc (size_t);
    void* __libc_calloc (size_t, size_t);
    void* __libc_realloc (void*, size_t);
    void* __libc_memalign (size_t, size_t);
    void __libc_free (void*);

    [[gnu::visibility ("default")]] void* malloc (size_t size)
    {
        countAllocation();
        return __libc_malloc (size);
    }

    [[gnu::visibility ("default")]] void* calloc (size_t count, size_t size)
    {
        countAllocation();
        return __libc_calloc (count, size);
    }

    [[gnu::visibility ("default")]] void* realloc (void* memory, size_t size)
    {
        countAllocation();
        return __libc_realloc (memory, size);
    }

    [[gnu::visibility ("default")]] void* aligned_alloc (size_t alignment, size_t size)
    {
        countAllocation();
        return __libc_memalign (alignment, size);
    }

    [[gnu::visibility ("default")]] int posix_memalign (void** memory, size_t alignment, size_t size)
    {
        countAllocation();
        *memory = __libc_memalign (alignment, size);
        return *memory != nullptr ? 0 : ENOMEM;
    }

    [[gnu::visibility ("default")]] void free (void* memory)
    {
        if (memory != nullptr)
            countAllocation();

        __libc_free (memory);
    }

    [[gnu::visibility ("default")]] int pthread_mutex_lock (pthread_mutex_t* mutex)
    {
        static const auto original = next<int (*) (pthread_mutex_t*)> ("pthread_mutex_lock");
        countLock();
        const auto result = original (mutex);
        countMutex (result == 0 ? 1 : 0);
        return result;
    }

    [[gnu::visibility ("default")]] int pthread_mutex_unlock (pthread_mutex_t* mutex)
    {
        static const auto original = next<int (*) (pthread_mutex_t*)> ("pthread_mutex_unlock");
        countMutex (-1);
        return original (mutex);
    }

    [[gnu::visibility ("default")]] int pthread_mutex_trylock (pthread_mutex_t* mutex)
    {
        static const auto original = next<int (*) (pthread_mutex_t*)> ("pthread_mutex_trylock");
        countLock();
        const auto result = original (mutex);
        countMutex (result == 0 ? 1 : 0);
        return result;
    }

    [[gnu::visibility ("default")]] int pthread_rwlock_rdlock (pthread_rwlock_t* lock)
    {
        static const auto original = next<int (*) (pthread_rwlock_t*)> ("pthread_rwlock_rdlock");
        countLock();
        return original (lock);
    }

    [[gnu::visibility ("default")]] int pthread_rwlock_wrlock (pthread_rwlock_t* lock)
    {
        static const auto original = next<int (*) (pthread_rwlock_t*)> ("pthread_rwlock_wrlock");
        countLock();
        return original (lock);
    }

    [[gnu::visibility ("default")]] ssize_t read (int descriptor, void* buffer, size_t size)
    {
        static const auto original = next<ssize_t (*) (int, void*, size_t)> ("read");
        countFileOperation();
        return original (descriptor, buffer, size);
    }

    [[gnu::visibility ("default")]] int fsync (int descriptor)
    {
        static const auto original = next<int (*) (int)> ("fsync");
        countFileOperation();
        return original (descriptor);
    }

    [[gnu::visibility ("default")]] int rename (const char* from, const char* to) noexcept
    {
        static const auto original = next<int (*) (const char*, const char*)> ("rename");
        countFileOperation();
        return original (from, to);
    }
}
