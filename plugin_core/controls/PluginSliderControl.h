// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ParameterSlider.h"

#include "../attachments/SliderAttachment.h"
#include "plugin_core/attachments/TwoValueSliderAttachment.h"
#include "plugin_core/processor/PluginProcessor.h"

#include <memory>
#include <vector>

namespace mk::pluginCore
{

/** A slider attached to one parameter, or a two-value slider attached to two, with a label for each value.

    Properties of the control (see StyleProperties.h) decide how the slider is drawn. Listeners of the
    broadcaster are called at each change of the slider. An id that names no parameter is ignored, and without
    ids the slider does nothing. [message thread, except parameterChanged()] */
class PluginSliderControl : public juce::Component,
                            public juce::ChangeBroadcaster,
                            public juce::AudioProcessorValueTreeState::Listener,
                            public juce::Label::Listener
{
public:
    /** The text is the control's accessibility title; if it is empty, the parameter's name is. The processor
        must outlive the control. */
    PluginSliderControl (PluginProcessor& processor,
                         const juce::StringArray& paramIDs,
                         const juce::String& textForLabel);
    PluginSliderControl (PluginProcessor& processor, const juce::String& paramID, const juce::String& textForLabel);
    ~PluginSliderControl() override;

    [[nodiscard]] ParameterSlider& getSlider() noexcept { return *slider; }
    [[nodiscard]] const juce::StringArray& getParamIDs() const noexcept { return paramIDs; }

    /** The label of one value of a two-value slider, 0 for the minimum and 1 for the maximum; null for other
        sliders. */
    [[nodiscard]] juce::Label* getValueLabel (int index) const noexcept;

    void setTooltip (const juce::String& tooltip);

    void resized() override;
    void lookAndFeelChanged() override;
    void labelTextChanged (juce::Label* label) override;

    /** Any thread. Posts the text of a value to its label. */
    void parameterChanged (const juce::String& id, float value) override;

private:
    void attachOne();
    void attachTwo();
    void layOutTwoValues();
    void updateValueLabel (int index);
    void setThumb (int index, double value);

    juce::AudioProcessorValueTreeState& state;
    const juce::StringArray paramIDs;
    const std::unique_ptr<ParameterSlider> slider;
    std::unique_ptr<SliderAttachment> singleAttachment;
    std::unique_ptr<TwoValueSliderAttachment> twoValueAttachment;
    juce::Label nameLabel; // never shown, since the product's panels have their own labels for their rows
    std::vector<std::unique_ptr<juce::Label>> valueLabels;
    juce::Component::SafePointer<PluginSliderControl> safeThis { this }; // created early, since other threads copy it

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginSliderControl)
};

} // namespace mk::pluginCore
