// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SliderAttachment.h"

namespace mk::pluginCore
{
namespace
{
/** The parameter's range for a slider, which may pass a start and an end other than the range's own. */
[[nodiscard]] juce::NormalisableRange<double> makeSliderRange (const juce::NormalisableRange<float>& range)
{
    const auto within = [range] (double start, double end)
    {
        auto part = range;
        part.start = float (start);
        part.end = float (end);
        return part;
    };

    juce::NormalisableRange<double> result (
        double (range.start),
        double (range.end),
        [within] (double start, double end, double position)
        { return double (within (start, end).convertFrom0to1 (float (position))); },
        [within] (double start, double end, double value)
        { return double (within (start, end).convertTo0to1 (float (value))); },
        [within] (double start, double end, double value)
        { return double (within (start, end).snapToLegalValue (float (value))); });

    result.interval = double (range.interval);
    result.skew = double (range.skew);
    result.symmetricSkew = range.symmetricSkew;
    return result;
}
} // namespace

SliderAttachment::SliderAttachment (juce::RangedAudioParameter& parameter,
                                    juce::Slider& sliderToAttach,
                                    juce::UndoManager* undoManager)
    : slider (sliderToAttach),
      attachment (
          parameter,
          [this] (float value) { showValue (value); },
          undoManager)
{
    slider.valueFromTextFunction = [&parameter] (const juce::String& text)
    { return double (parameter.convertFrom0to1 (parameter.getValueForText (text))); };
    slider.textFromValueFunction = [&parameter] (double value)
    { return parameter.getText (parameter.convertTo0to1 (float (value)), 0); };
    slider.setDoubleClickReturnValue (true, double (parameter.convertFrom0to1 (parameter.getDefaultValue())));
    slider.setNormalisableRange (makeSliderRange (parameter.getNormalisableRange()));

    attachment.sendInitialUpdate();
    slider.valueChanged();
    slider.addListener (this);
}

SliderAttachment::~SliderAttachment() { slider.removeListener (this); }

void SliderAttachment::showValue (float value)
{
    const juce::ScopedValueSetter<bool> setter (ignoreCallbacks, true);
    slider.setValue (double (value), juce::sendNotificationSync);
}

void SliderAttachment::sliderValueChanged (juce::Slider*)
{
    if (! ignoreCallbacks)
        attachment.setValueAsPartOfGesture (float (slider.getValue()));
}

} // namespace mk::pluginCore
