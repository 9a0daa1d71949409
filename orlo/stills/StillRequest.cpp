// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillRequest.h"

namespace mk::orlo
{
namespace
{
/** Exactly the same number: a view that has moved by any part of a sample shows something else. */
template <typename Value>
[[nodiscard]] bool isSameNumber (Value left, Value right) noexcept
{
    return ! (left < right) && ! (right < left);
}
} // namespace

bool showsTheSame (const StillRequest& left, const StillRequest& right) noexcept
{
    const auto& hops = left.hop;
    const auto& otherHops = right.hop;

    return left.source == right.source && left.otherSource == right.otherSource && left.pointsKept == right.pointsKept
           && isSameNumber (left.start, right.start) && isSameNumber (left.length, right.length)
           && left.width == right.width && left.height == right.height && hops.windowSize == otherHops.windowSize
           && isSameNumber (hops.sampleRate, otherHops.sampleRate) && isSameNumber (hops.speed, otherHops.speed)
           && hops.doubleResolution == otherHops.doubleResolution && hops.enhanced == otherHops.enhanced
           && isSameNumber (left.minFreqFraction, right.minFreqFraction)
           && isSameNumber (left.maxFreqFraction, right.maxFreqFraction) && left.scaleType == right.scaleType;
}

} // namespace mk::orlo
