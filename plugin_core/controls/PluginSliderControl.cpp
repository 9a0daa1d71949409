// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginSliderControl.h"

#include "plugin_core/attachments/UndoFlush.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

#include <algorithm>

namespace mk::pluginCore
{
namespace
{
constexpr float sliderShare = 0.5f;
constexpr float labelShare = 0.73f;
constexpr float labelWidthShare = 0.5f;
constexpr int labelOverlap = 1; // the label's empty top edge reaches this far into the slider
} // namespace

PluginSliderControl::PluginSliderControl (PluginProcessor& processor,
                                          const juce::StringArray& ids,
                                          const juce::String& textForLabel)
    : state (processor.getParameterState()),
      paramIDs (ids),
      slider (std::make_unique<ParameterSlider>()),
      nameLabel ({}, textForLabel)
{
    addAndMakeVisible (*slider);
    slider->onValueChange = [this] { sendChangeMessage(); };
    slider->gestureEnded = [this] { flushIntoTransaction (state); };

    if (paramIDs.size() == 1)
        attachOne();
    else if (paramIDs.size() == 2)
        attachTwo();

    if (textForLabel.isNotEmpty())
        slider->setTitle (textForLabel);
    else if (const auto* parameter = state.getParameter (paramIDs[0]))
        slider->setTitle (parameter->getName (128));
}

PluginSliderControl::PluginSliderControl (PluginProcessor& processor,
                                          const juce::String& paramID,
                                          const juce::String& textForLabel)
    : PluginSliderControl (processor, juce::StringArray (paramID), textForLabel)
{
}

PluginSliderControl::~PluginSliderControl()
{
    for (const auto& id : paramIDs)
        state.removeParameterListener (id, this);
}

void PluginSliderControl::attachOne()
{
    // A click without a drag edits the value's text, so it must not move the slider.
    slider->setSliderStyle (juce::Slider::LinearHorizontal);
    slider->setSliderSnapsToMousePosition (false);

    if (auto* parameter = state.getParameter (paramIDs[0]))
        singleAttachment = std::make_unique<SliderAttachment> (*parameter, *slider, state.undoManager);
}

void PluginSliderControl::attachTwo()
{
    slider->setSliderStyle (juce::Slider::TwoValueHorizontal);
    slider->setTextBoxStyle (juce::Slider::NoTextBox, false, 0, 0);

    if (const auto* parameter = state.getParameter (paramIDs[0]))
    {
        slider->textFromValueFunction = [parameter] (double value)
        { return parameter->getText (parameter->convertTo0to1 (float (value)), 0); };
        slider->valueFromTextFunction = [parameter] (const juce::String& text)
        { return double (parameter->convertFrom0to1 (parameter->getValueForText (text))); };
    }

    twoValueAttachment = std::make_unique<TwoValueSliderAttachment> (state, paramIDs, *slider);

    for (int i = 0; i < paramIDs.size(); ++i)
    {
        const auto* parameter = state.getParameter (paramIDs[i]);
        auto& label = *valueLabels.emplace_back (std::make_unique<juce::Label>());
        label.setEditable (false, true);
        label.setJustificationType (i == 0 ? juce::Justification::centredLeft : juce::Justification::centredRight);
        label.setTitle (parameter != nullptr ? parameter->getName (128) : juce::String());
        label.addListener (this);
        addAndMakeVisible (label);
        updateValueLabel (i);
    }

    // Other threads may call parameterChanged() from here on, so this comes after everything else is set up.
    for (const auto& id : paramIDs)
        if (state.getParameter (id) != nullptr)
            state.addParameterListener (id, this);
}

juce::Label* PluginSliderControl::getValueLabel (int index) const noexcept
{
    return juce::isPositiveAndBelow (index, int (valueLabels.size())) ? valueLabels[size_t (index)].get() : nullptr;
}

void PluginSliderControl::setTooltip (const juce::String& tooltip)
{
    slider->setTooltip (tooltip);

    for (const auto& label : valueLabels)
        label->setTooltip (tooltip);
}

void PluginSliderControl::resized()
{
    if (! valueLabels.empty())
    {
        layOutTwoValues();
        return;
    }

    // The look and feel puts the text of a single value on the slider or, with labelAbove, above it. It reads
    // labelAbove from this control, so the slider's layout is updated even if its size has not changed.
    slider->setBounds (getLocalBounds());
    slider->resized();
}

void PluginSliderControl::layOutTwoValues()
{
    const auto width = getWidth();
    const auto height = getHeight();
    const auto sliderHeight = std::min (height, juce::roundToInt (float (height) * sliderShare));
    const auto labelHeight = juce::roundToInt (float (height - sliderHeight) * labelShare);
    const auto labelWidth = std::min (width, juce::roundToInt (float (width) * labelWidthShare));
    const auto labelY = std::max (sliderHeight - labelOverlap, 0);

    slider->setBounds (0, 0, width, sliderHeight);
    valueLabels[0]->setBounds (0, labelY, labelWidth, labelHeight);
    valueLabels[1]->setBounds (width - labelWidth, labelY, labelWidth, labelHeight);

    for (const auto& label : valueLabels)
    {
        auto& style = label->getProperties();
        style.set (styleProperty::cat, getProperties().getWithDefault (styleProperty::cat, scaleRule::defaultCategory));
        style.set (styleProperty::fontScale, getProperties().getWithDefault (styleProperty::fontScale, 1.0));
    }
}

void PluginSliderControl::lookAndFeelChanged()
{
    // The change of style has created a new text box.
    slider->setTooltip (slider->getTooltip());
    resized();
}

void PluginSliderControl::updateValueLabel (int index)
{
    if (auto* label = getValueLabel (index))
        label->setText (slider->getTextFromValue (index == 0 ? slider->getMinValue() : slider->getMaxValue()),
                        juce::dontSendNotification);
}

void PluginSliderControl::labelTextChanged (juce::Label* changed)
{
    const auto value = slider->getValueFromText (changed->getText());

    for (int i = 0; i < int (valueLabels.size()); ++i)
    {
        if (getValueLabel (i) == changed)
        {
            setThumb (i, value);
            updateValueLabel (i);
        }
    }
}

void PluginSliderControl::setThumb (int index, double value)
{
    if (juce::approximatelyEqual (value, index == 0 ? slider->getMinValue() : slider->getMaxValue()))
        return;

    if (state.undoManager != nullptr)
        state.undoManager->beginNewTransaction();

    auto* parameter = state.getParameter (paramIDs[index]);

    if (parameter != nullptr)
        parameter->beginChangeGesture();

    // This thumb stops at the other one and does not push it along.
    if (index == 0)
        slider->setMinValue (value, juce::sendNotificationSync, false);
    else
        slider->setMaxValue (value, juce::sendNotificationSync, false);

    if (parameter != nullptr)
        parameter->endChangeGesture();

    flushIntoTransaction (state);
}

void PluginSliderControl::parameterChanged (const juce::String& id, float value)
{
    const auto index = paramIDs.indexOf (id);

    if (! juce::isPositiveAndBelow (index, int (valueLabels.size())))
        return;

    juce::MessageManager::callAsync (
        [control = safeThis, index, value]
        {
            if (control != nullptr && control->getValueLabel (index) != nullptr)
                control->getValueLabel (index)->setText (control->slider->getTextFromValue (double (value)),
                                                         juce::dontSendNotification);
        });
}

} // namespace mk::pluginCore
