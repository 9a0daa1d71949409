// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TimeView.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{

TimeView::TimeView (double firstSample, double endSample, double rate, double frozenStart, double frozenLength) noexcept
    : soundStart (firstSample),
      soundEnd (std::max (firstSample, endSample)),
      sampleRate (rate),
      homeStart (frozenStart),
      homeLength (frozenLength),
      start (frozenStart),
      length (frozenLength)
{
}

bool TimeView::isHome() const noexcept
{
    // Within a thousandth of a sample, which rounding may have moved the range by.
    constexpr auto tolerance = 0.001;
    return std::abs (start - homeStart) < tolerance && std::abs (length - homeLength) < tolerance;
}

double TimeView::getLongestLength() const noexcept
{
    return std::max ({ soundEnd - soundStart, homeLength, getShortestLength() });
}

void TimeView::setRange (double newStart, double newLength) noexcept
{
    if (! std::isfinite (newStart) || ! std::isfinite (newLength))
        return;

    length = std::clamp (newLength, getShortestLength(), getLongestLength());

    // A range that is longer than the sound contains all of it.
    const auto first = std::min (soundStart, soundEnd - length);
    const auto last = std::max (soundStart, soundEnd - length);
    start = std::clamp (newStart, first, last);
}

void TimeView::zoom (double factor, double sample, double share) noexcept
{
    if (! (factor > 0.0))
        return;

    const auto newLength = std::clamp (length * factor, getShortestLength(), getLongestLength());
    setRange (sample - share * newLength, newLength);
}

void TimeView::moveBy (double numSamples) noexcept { setRange (start + numSamples, length); }

void TimeView::showAll() noexcept { setRange (soundStart, soundEnd - soundStart); }

void TimeView::goToStart() noexcept { setRange (soundStart, length); }

void TimeView::goToEnd() noexcept { setRange (soundEnd - length, length); }

void TimeView::goHome() noexcept
{
    start = homeStart;
    length = homeLength;
}

} // namespace mk::orlo
