// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillScales.h"

#include "orlo/analysis/ColumnSettings.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr size_t mostEntries = 4;

/** The shown range in hertz, as the engine gets it from the request's shares. */
[[nodiscard]] ColumnSettings getRange (const StillRequest& request) noexcept
{
    FrameFormat format;
    format.sampleRate = float (request.hop.sampleRate);
    return makeColumnSettings (format,
                               { request.minFreqFraction, request.maxFreqFraction, 0.0f, 0.0f, request.height });
}

[[nodiscard]] bool isSame (float left, float right) noexcept { return ! (std::abs (left - right) > 0.0f); }
} // namespace

std::shared_ptr<const FrequencyScale> makeStillScale (const StillRequest& request)
{
    const auto range = getRange (request);
    auto scale = std::make_shared<FrequencyScale>();
    scale->setScaleType (request.scaleType);
    scale->setRange (range.minHz, range.maxHz);

    // Nothing is posted after this, so any thread may destroy the scale.
    scale->notifyListenersNow();
    return scale;
}

std::shared_ptr<const FrequencyScale> StillScales::obtain (const StillRequest& request)
{
    const auto range = getRange (request);
    const auto found = std::find_if (entries.begin(),
                                     entries.end(),
                                     [&] (const Entry& entry) {
                                         return isSame (entry.minHz, range.minHz) && isSame (entry.maxHz, range.maxHz)
                                                && entry.type == request.scaleType;
                                     });

    if (found != entries.end())
    {
        std::rotate (found, found + 1, entries.end());
        return entries.back().scale;
    }

    if (entries.size() == mostEntries)
        entries.erase (entries.begin());

    entries.push_back ({ range.minHz, range.maxHz, request.scaleType, makeStillScale (request) });
    return entries.back().scale;
}

} // namespace mk::orlo
