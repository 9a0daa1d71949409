// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Measurement.h"

#include "orlo/explore/Explorer.h"
#include "orlo/stills/StillScales.h"

namespace mk::orlo
{

/** Measures in the picture that is explored while the mouse is held on it, and keeps the text for the clipboard until
    exploring ends. [message thread] */
class MeasuringTool final : private Explorer::Listener
{
public:
    /** Must outlive the tool. */
    explicit MeasuringTool (Explorer& explorer);
    ~MeasuringTool() override;

    /** The mouse is held on the view.
        @param place   of the mouse in the view
        @param size    of the view
        @param isDrag  whether the mouse has moved away from where it was pressed
        @param snaps   whether a strong point nearby is taken
        @return        where the point is in the view; nothing if there is no picture to measure in */
    std::optional<juce::Point<float>> hold (juce::Point<float> place, juce::Point<int> size, bool isDrag, bool snaps);

    /** The text for what is measured; empty if nothing is. */
    [[nodiscard]] juce::String getText (const notes::Tuning& tuning) const;

    /** The pitch of the point that was measured last, in hertz; 0 if there is none. */
    [[nodiscard]] double getFrequency() const noexcept;

private:
    void exploringChanged() override;

    Explorer& explorer;
    StillScales scales;
    Measurement measurement;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (MeasuringTool)
};

} // namespace mk::orlo
