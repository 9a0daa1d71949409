// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PointsChoice.h"

#include <algorithm>
#include <array>

namespace mk::orlo::data
{
namespace
{
// In the order of PointsKept. What is not among them means all.
constexpr std::array pointsTexts { "all", "lines", "clicks", "linesAndClicks" };
} // namespace

PointsChoice::PointsChoice (juce::ValueTree productData) : data (std::move (productData))
{
    data.addListener (this);
    read();
}

PointsChoice::~PointsChoice() { data.removeListener (this); }

void PointsChoice::set (PointsKept chosen, juce::UndoManager& undoManager)
{
    if (chosen == current)
        return;

    undoManager.beginNewTransaction();

    if (chosen == PointsKept::all)
        data.removeProperty (property, &undoManager);
    else
        data.setProperty (property, pointsTexts[size_t (chosen)], &undoManager);
}

void PointsChoice::read()
{
    const auto found = std::find (pointsTexts.begin(), pointsTexts.end(), data[property].toString());
    current = found != pointsTexts.end() ? PointsKept (found - pointsTexts.begin()) : PointsKept::all;
}

} // namespace mk::orlo::data
