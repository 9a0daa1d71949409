// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrequencyGesture.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/ParameterAccess.h"
#include "plugin_core/attachments/UndoFlush.h"

namespace mk::orlo
{
namespace
{
constexpr int wheelRestMilliseconds = 400;

void setIfOther (juce::RangedAudioParameter& parameter, float value)
{
    if (! juce::approximatelyEqual (value, parameter.getValue()))
        parameter.setValueNotifyingHost (value);
}
} // namespace

FrequencyGesture::FrequencyGesture (AudioPluginAudioProcessor& processorToUse)
    : processor (processorToUse),
      minimum (findParameter (processorToUse, Params::id::minFreq)),
      maximum (findParameter (processorToUse, Params::id::maxFreq))
{
}

FrequencyGesture::~FrequencyGesture() { finish(); }

FrequencyRange FrequencyGesture::getRange() const
{
    return { double (getCurrentValue (minimum)) * 0.01, double (getCurrentValue (maximum)) * 0.01 };
}

void FrequencyGesture::set (FrequencyRange range)
{
    setValues (
        { minimum.convertTo0to1 (float (range.min * 100.0)), maximum.convertTo0to1 (float (range.max * 100.0)) });
}

void FrequencyGesture::setValues (Values values)
{
    if (! std::exchange (goingOn, true))
    {
        processor.getUndoManager().beginNewTransaction();
        minimum.beginChangeGesture();
        maximum.beginChangeGesture();
    }

    // The minimum never passes the maximum on the way.
    const auto isUp = values.max > maximum.getValue();

    if (isUp)
        setIfOther (maximum, values.max);

    setIfOther (minimum, values.min);

    if (! isUp)
        setIfOther (maximum, values.max);

    startTimer (wheelRestMilliseconds);
}

void FrequencyGesture::finish()
{
    stopTimer();

    if (! std::exchange (goingOn, false))
        return;

    minimum.endChangeGesture();
    maximum.endChangeGesture();
    pluginCore::flushIntoTransaction (processor.getParameterState());
}

} // namespace mk::orlo
