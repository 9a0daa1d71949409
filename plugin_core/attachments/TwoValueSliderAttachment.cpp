// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TwoValueSliderAttachment.h"

#include "UndoFlush.h"

namespace mk::pluginCore
{
namespace
{
constexpr int minThumb = 1;

[[nodiscard]] juce::NormalisableRange<double> makeSliderRange (const juce::RangedAudioParameter& parameter)
{
    const auto& range = parameter.getNormalisableRange();

    juce::NormalisableRange<double> result (
        double (range.start),
        double (range.end),
        [&parameter] (double, double, double position)
        { return double (parameter.convertFrom0to1 (float (position))); },
        [&parameter] (double, double, double value) { return double (parameter.convertTo0to1 (float (value))); });
    result.interval = double (range.interval);
    return result;
}
} // namespace

class TwoValueSliderAttachment::Pimpl final : public AttachedParamsControlBase, public juce::Slider::Listener
{
public:
    Pimpl (juce::AudioProcessorValueTreeState& stateToUse, const juce::StringArray& ids, juce::Slider& sliderToAttach)
        : AttachedParamsControlBase (stateToUse),
          slider (sliderToAttach),
          minParamID (ids[0]),
          maxParamID (ids[1]),
          minParameter (state.getParameter (minParamID)),
          maxParameter (state.getParameter (maxParamID))
    {
        listenTo (minParamID);
        listenTo (maxParamID);
        slider.addListener (this);

        if (const auto* ranged = minParameter != nullptr ? minParameter : maxParameter)
            slider.setNormalisableRange (makeSliderRange (*ranged));

        // Setting the minimum pushes a lower maximum along, so the maximum is set both before and after it.
        for (const auto& id : { maxParamID, minParamID, maxParamID })
            if (const auto* parameter = state.getParameter (id))
                setValue (id, parameter->convertFrom0to1 (parameter->getValue()));
    }

    ~Pimpl() override
    {
        stopListening();
        slider.removeListener (this);
    }

    void setValue (const juce::String& id, float value) override
    {
        if (id == minParamID)
            slider.setMinValue (double (value), juce::dontSendNotification, true);
        else if (id == maxParamID)
            slider.setMaxValue (double (value), juce::dontSendNotification, true);
    }

    void beginParameterChange() override
    {
        if (auto* undoManager = state.undoManager)
            undoManager->beginNewTransaction();

        thumbBeingDragged = slider.getThumbBeingDragged();

        if (auto* dragged = getDraggedParameter())
            dragged->beginChangeGesture();
    }

    void endParameterChange() override
    {
        // The slider reports its values by an asynchronous message, which has not arrived yet.
        sliderValueChanged (&slider);

        if (auto* dragged = getDraggedParameter())
            dragged->endChangeGesture();

        flushIntoTransaction (state);
    }

    void sliderValueChanged (juce::Slider*) override
    {
        if (juce::ModifierKeys::currentModifiers.isRightButtonDown())
            return;

        // Writing a parameter sets the slider's value too, so both values are read before either is written.
        const auto minimum = slider.getMinValue();
        const auto maximum = slider.getMaxValue();
        setNewUnnormalisedValue (float (minimum), minParamID);
        setNewUnnormalisedValue (float (maximum), maxParamID);
    }

    void sliderDragStarted (juce::Slider*) override { beginParameterChange(); }
    void sliderDragEnded (juce::Slider*) override { endParameterChange(); }

private:
    [[nodiscard]] juce::RangedAudioParameter* getDraggedParameter() const noexcept
    {
        return thumbBeingDragged == minThumb ? minParameter : maxParameter;
    }

    void setNewUnnormalisedValue (float value, const juce::String& id)
    {
        auto* parameter = state.getParameter (id);

        if (parameter == nullptr)
            return;

        if (const auto position = parameter->convertTo0to1 (value);
            ! juce::approximatelyEqual (position, parameter->getValue()))
            parameter->setValueNotifyingHost (position);
    }

    juce::Slider& slider;
    int thumbBeingDragged = -1;
    const juce::String minParamID, maxParamID;
    juce::RangedAudioParameter* const minParameter;
    juce::RangedAudioParameter* const maxParameter;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (Pimpl)
};

TwoValueSliderAttachment::TwoValueSliderAttachment (juce::AudioProcessorValueTreeState& state,
                                                    const juce::StringArray& paramIDs,
                                                    juce::Slider& slider)
    : pimpl (std::make_unique<Pimpl> (state, paramIDs, slider))
{
}

TwoValueSliderAttachment::~TwoValueSliderAttachment() = default;

} // namespace mk::pluginCore
