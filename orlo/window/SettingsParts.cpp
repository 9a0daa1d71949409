// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsParts.h"

#include "orlo/style/OrloColours.h"

#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/IconDrawable.h"

namespace mk::orlo::settingsParts
{
namespace styleProperty = pluginCore::styleProperty;

namespace
{
constexpr int dragSensitivity = 125;
constexpr int boxCategory = 2;
constexpr float narrowestText = 0.7f;

[[nodiscard]] int categoryFor (LabelKind kind) noexcept
{
    switch (kind)
    {
        case LabelKind::title: return 0;
        case LabelKind::heading: return 1;
        case LabelKind::row: break;
    }

    return 2;
}

/** An icon button whose margin is proportional to its width. */
class ToggleIcon final : public pluginCore::ComponentIgnoringRightButton<juce::DrawableButton>
{
public:
    ToggleIcon (const juce::String& name, float marginToKeep)
        : ComponentIgnoringRightButton (name, juce::DrawableButton::ImageFitted), margin (marginToKeep)
    {
    }

    [[nodiscard]] juce::Rectangle<float> getImageBounds() const override
    {
        return getLocalBounds().reduced (juce::roundToInt (float (getWidth()) * margin)).toFloat();
    }

private:
    const float margin;
};
} // namespace

void setUpLabel (juce::Label& label, const juce::String& text, LabelKind kind)
{
    const auto isRow = kind == LabelKind::row;
    label.setText (text, juce::dontSendNotification);
    label.getProperties().set (styleProperty::cat, categoryFor (kind));
    label.setColour (juce::Label::textColourId,
                     pluginCore::findColourOr (
                         label, isRow ? colourId::panelLabelText : colourId::panelHeadingText, getOrloColours()));
    label.setJustificationType (isRow ? juce::Justification::centredRight : juce::Justification::centredLeft);
    label.setBorderSize (juce::BorderSize<int> (0));
    label.setMinimumHorizontalScale (narrowestText);
    label.setInterceptsMouseClicks (false, false);
}

void setUpBar (ButtonBarComponent& bar, const juce::String& title, const juce::StringArray& tips)
{
    bar.setTitle (title);
    bar.getProperties().set (styleProperty::cat, boxCategory);
    bar.getProperties().set (styleProperty::fontScale, 1.0);

    for (int i = 0; i < std::min (bar.getNumButtons(), tips.size()); ++i)
    {
        bar.getButton (i).setTooltip (tips[i]);
        bar.getButton (i).setName (bar.getParamID());
    }
}

void setUpBox (juce::ComboBox& box, const juce::String& parameterId, const juce::String& title, const juce::String& tip)
{
    box.setName (parameterId);
    box.setTitle (title);
    box.setTooltip (tip);
    box.getProperties().set (styleProperty::cat, boxCategory);
    box.getProperties().set (styleProperty::fontScale, 1.0);
}

void setUpSlider (pluginCore::PluginSliderControl& control, const juce::String& tip)
{
    control.getProperties().set (styleProperty::buttonSlider, true);
    control.getProperties().set (styleProperty::cat, boxCategory);
    control.getSlider().setMouseDragSensitivity (dragSensitivity);
    control.setTooltip (tip);
}

juce::Button* makeToggle (pluginCore::Icon icon, const juce::String& title, float margin)
{
    auto button = std::make_unique<ToggleIcon> (title, margin);
    pluginCore::setSwitchIcon (*button, icon);
    button->setTitle (title);
    return button.release();
}

juce::String getAutoFreezeTip()
{
    return juce::translate ("Auto-Pause: Pauses the display automatically when the DAW transport stops");
}

} // namespace mk::orlo::settingsParts
