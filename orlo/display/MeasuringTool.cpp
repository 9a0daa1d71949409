// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MeasuringTool.h"

namespace mk::orlo
{
namespace
{
/** The middle of a point's row in the view, and its time. */
[[nodiscard]] juce::Point<float> findInView (const StillPoint& point,
                                             const StillPicture& picture,
                                             const FrequencyScale& scale,
                                             juce::Point<int> size)
{
    const auto& request = picture.getRequest();
    const auto share = float ((point.sample - request.start) / request.length);
    return { share * float (size.x), (1.0f - scale.positionForFrequency (float (point.hertz))) * float (size.y) };
}
} // namespace

MeasuringTool::MeasuringTool (Explorer& explorerToUse) : explorer (explorerToUse) { explorer.addListener (this); }

MeasuringTool::~MeasuringTool() { explorer.removeListener (this); }

std::optional<juce::Point<float>>
    MeasuringTool::hold (juce::Point<float> place, juce::Point<int> size, bool isDrag, bool snaps)
{
    const auto picture = explorer.getPicture();

    if (picture == nullptr || size.x < 1 || size.y < 1)
        return std::nullopt;

    const auto scale = scales.obtain (picture->getRequest());
    const Measurement::Place shown { { place.x / float (size.x), place.y / float (size.y) },
                                     float (picture->getHeight()) / float (size.y),
                                     snaps };

    if (isDrag)
        measurement.extend (*picture, *scale, shown);
    else
        measurement.begin (*picture, *scale, shown);

    const auto& point = measurement.getSecond() ? measurement.getSecond() : measurement.getFirst();
    return findInView (*point, *picture, *scale, size);
}

juce::String MeasuringTool::getText (const notes::Tuning& tuning) const
{
    return explorer.isExploring() ? measurement.getText (tuning, explorer.getTimeView().getSoundEnd()) : juce::String();
}

double MeasuringTool::getFrequency() const noexcept
{
    const auto& point = measurement.getSecond() ? measurement.getSecond() : measurement.getFirst();
    return point ? point->hertz : 0.0;
}

void MeasuringTool::exploringChanged() { measurement.clear(); }

} // namespace mk::orlo
