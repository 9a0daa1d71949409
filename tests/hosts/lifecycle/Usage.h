// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstddef>

namespace mk::orlo::lifecycle
{

/** What the process holds at the moment. */
struct Usage
{
    size_t numThreads = 0;
    size_t numDescriptors = 0; // including every connection to the X server
    size_t heapBytes = 0;

    [[nodiscard]] static Usage measure();
};

} // namespace mk::orlo::lifecycle
