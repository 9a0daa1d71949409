// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

namespace mk::orlo
{

/** Sound that pictures are made from: one endless mono signal, with silence before its start and after its end. One
    thread at a time. */
class SampleSource
{
public:
    virtual ~SampleSource() = default;

    /** Fills the destination with the samples from a position on, which may be negative. The positions of successive
        calls never fall below the end of the call before, unless a source says that it allows that.
        Throws an exception derived from std::exception if the samples cannot be read. */
    virtual void read (std::int64_t position, std::span<float> destination) = 0;
};

} // namespace mk::orlo
