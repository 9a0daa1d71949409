// SPDX-License-Identifier: AGPL-3.0-or-later
// What the user does to a frozen picture.
#include "Exploration.h"

namespace mk::orlo
{
namespace
{
[[nodiscard]] bool looksTheSame (FrequencyGesture::Values left, FrequencyGesture::Values right) noexcept
{
    return juce::approximatelyEqual (left.min, right.min) && juce::approximatelyEqual (left.max, right.max);
}
} // namespace

bool Exploration::zoomTime (double factor, float x)
{
    const auto wasExploring = explorer.isExploring();
    const auto oldShare = double (x) / double (juce::jmax (1, view.getWidth()));

    if (! begin())
        return false;

    // The view may have become smaller by now.
    const auto share = double (x) / double (juce::jmax (1, view.getWidth()));
    auto times = explorer.getTimeView();
    times.zoom (factor, wasExploring ? times.getSampleAt (share) : picture.getSampleAt (oldShare), share);
    explorer.setTimeView (times);
    return true;
}

bool Exploration::changeTimeView (const std::function<void (TimeView&)>& change)
{
    if (! begin())
        return false;

    auto times = explorer.getTimeView();
    change (times);
    explorer.setTimeView (times);
    return true;
}

bool Exploration::zoomFrequencies (double factor, float y)
{
    if (! begin())
        return false;

    const auto range = frequencies.getRange();
    const auto position = 1.0 - juce::jlimit (0.0, 1.0, double (y) / double (juce::jmax (1, view.getHeight())));
    const auto zoomed = mk::orlo::zoomFrequencies (
        range, explorer.getSettings().scaleType, explorer.getSound()->getSampleRate() * 0.5, position, factor);

    if (! valuesBefore.has_value())
        valuesBefore = frequencies.getValues();

    frequencies.set (zoomed);
    valuesAfter = frequencies.getValues();
    follow (readSettings());
    return true;
}

//==============================================================================
void Exploration::restoreFrequencies()
{
    frequencies.finish();

    // If another control has moved the range since, that is what the user wants.
    if (valuesBefore.has_value() && valuesAfter.has_value() && looksTheSame (frequencies.getValues(), *valuesAfter))
    {
        frequencies.setValues (*valuesBefore);
        frequencies.finish();
    }

    valuesBefore.reset();
}

void Exploration::goHome()
{
    if (! explorer.isExploring())
        return;

    restoreFrequencies();

    if (isAsFrozen (readSettings()))
    {
        end();
        return;
    }

    changeTimeView ([] (TimeView& times) { times.goHome(); });
    follow (readSettings());
}

bool Exploration::stop()
{
    if (! explorer.isExploring())
        return false;

    restoreFrequencies();
    end();
    frozen = readSettings();
    return true;
}

} // namespace mk::orlo
