// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "NoteNames.h"

#include "orlo/stills/StillPoints.h"

#include <memory>
#include <optional>

namespace mk::orlo
{

/** What the user measures in a still picture by holding the mouse on it: a point, and from there a second one.
    [message thread] */
class Measurement
{
public:
    /** How far away a point may be that the mouse snaps to, in pixels of the screen. */
    static constexpr int snapRadius = 8;

    /** Where the mouse is. */
    struct Place
    {
        juce::Point<float> share;   /**< Of the picture's width and height, 0 .. 1 each. */
        float pixelsPerUnit = 1.0f; /**< Pixels of the picture in one of the screen. */
        bool snaps = true;
    };

    /** Measures a point, and forgets those before. */
    void begin (const StillPicture& picture, const FrequencyScale& scale, const Place& place);

    /** Measures the second point. If it is that of begin() again, there is none. */
    void extend (const StillPicture& picture, const FrequencyScale& scale, const Place& place);

    void clear() noexcept;

    [[nodiscard]] const std::optional<StillPoint>& getFirst() const noexcept { return first; }
    [[nodiscard]] const std::optional<StillPoint>& getSecond() const noexcept { return second; }

    /** The text for the point, or for the difference of two; empty if nothing is measured.
        @param soundEnd  the sample from which the time is counted back */
    [[nodiscard]] juce::String getText (const notes::Tuning& tuning, double soundEnd) const;

private:
    std::optional<StillPoint> first, second;
    double sampleRate = 0.0;
    int timeDecimals = 3;
};

} // namespace mk::orlo
