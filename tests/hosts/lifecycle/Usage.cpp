// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Usage.h"

#include <filesystem>
#include <iterator>

#include <malloc.h>

namespace mk::orlo::lifecycle
{
namespace
{
[[nodiscard]] size_t countEntries (const char* folder)
{
    return size_t (std::distance (std::filesystem::directory_iterator (folder), {}));
}
} // namespace

Usage Usage::measure()
{
    const auto heap = mallinfo2();
    return { countEntries ("/proc/self/task"), countEntries ("/proc/self/fd"), heap.uordblks + heap.hblkhd };
}

} // namespace mk::orlo::lifecycle
