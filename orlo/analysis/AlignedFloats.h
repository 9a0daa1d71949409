// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace mk::orlo
{

/** Allocates blocks that begin at the start of a cache line, which vector instructions read and write fastest. */
template <typename Type>
struct CacheLineAllocator
{
    using value_type = Type;

    CacheLineAllocator() noexcept = default;

    template <typename Other>
    CacheLineAllocator (const CacheLineAllocator<Other>&) noexcept
    {
    }

    [[nodiscard]] Type* allocate (size_t count)
    {
        return static_cast<Type*> (::operator new (count * sizeof (Type), alignment));
    }

    void deallocate (Type* block, size_t) noexcept { ::operator delete (block, alignment); }

    bool operator== (const CacheLineAllocator&) const noexcept = default;

private:
    static constexpr std::align_val_t alignment { 64 };
};

using AlignedFloats = std::vector<float, CacheLineAllocator<float>>;

} // namespace mk::orlo
