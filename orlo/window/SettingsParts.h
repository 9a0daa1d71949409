// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/controls/ButtonBarComponent.h"

#include "plugin_core/controls/PluginSliderControl.h"
#include "plugin_core/style/icons/Icon.h"

/** Sets up the appearance of the parts of the settings panel. [message thread] */
namespace mk::orlo::settingsParts
{

enum class LabelKind
{
    title,
    heading,
    row /**< ends before the control that it names */
};

void setUpLabel (juce::Label& label, const juce::String& text, LabelKind kind);

/** The tips are those of the buttons, from left to right. Like a box, each button has the parameter's id as
    its name, with which the window tells the host which parameter is under the mouse. */
void setUpBar (ButtonBarComponent& bar, const juce::String& title, const juce::StringArray& tips);

void setUpBox (juce::ComboBox& box,
               const juce::String& parameterId,
               const juce::String& title,
               const juce::String& tip);

/** Makes the slider a flat bar with its value on it. */
void setUpSlider (pluginCore::PluginSliderControl& control, const juce::String& tip);

/** The button of a toggle; a control must take ownership of it. The icon's margin is that share of the width. */
[[nodiscard]] juce::Button* makeToggle (pluginCore::Icon icon, const juce::String& title, float margin);

[[nodiscard]] juce::String getAutoFreezeTip();

} // namespace mk::orlo::settingsParts
