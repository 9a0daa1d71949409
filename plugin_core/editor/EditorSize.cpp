// SPDX-License-Identifier: AGPL-3.0-or-later
#include "EditorSize.h"

#include <limits>

namespace mk::pluginCore::editorSize
{
namespace
{
constexpr int roomForHostBars = 90;
constexpr int marginAtSide = 10;
constexpr int marginAboveAndBelow = 100;
} // namespace

const juce::Displays::Display* findDisplay (const juce::Array<juce::Displays::Display>& displays,
                                            juce::Point<int> point) noexcept
{
    const juce::Displays::Display* nearest = nullptr;
    auto leastDistance = std::numeric_limits<double>::max();

    for (const auto& display : displays)
    {
        if (display.totalArea.contains (point))
            return &display;

        const auto way = (point - display.totalArea.getCentre()).toDouble();

        if (const auto distance = std::hypot (way.x, way.y); distance <= leastDistance)
        {
            leastDistance = distance;
            nearest = &display;
        }
    }

    return nearest;
}

juce::Point<int> getLargest (juce::Point<int> smallest, juce::Rectangle<int> usable) noexcept
{
    return { juce::jmax (smallest.x, usable.getWidth()),
             juce::jmax (smallest.y, usable.getHeight() - roomForHostBars) };
}

juce::Point<int> fitIntoDisplay (juce::Point<int> size, juce::Rectangle<int> usable, double aspectRatio) noexcept
{
    const auto narrower = usable.getWidth() - marginAtSide;
    const auto lower = usable.getHeight() - marginAboveAndBelow;
    const auto isTooWide = size.x > usable.getWidth();
    const auto isTooHigh = size.y > usable.getHeight();
    const auto isFree = juce::approximatelyEqual (aspectRatio, 0.0);

    if (isTooWide)
        return { narrower, ! isFree ? juce::roundToInt (narrower / aspectRatio) : isTooHigh ? lower : size.y };

    if (isTooHigh)
        return { ! isFree ? juce::roundToInt (lower * aspectRatio) : size.x, lower };

    return size;
}

} // namespace mk::pluginCore::editorSize
