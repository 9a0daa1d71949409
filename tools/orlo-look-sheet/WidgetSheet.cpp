// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Sheets.h"

#include "orlo/controls/ButtonBarComponent.h"
#include "orlo/display/ColourComboBoxControl.h"
#include "orlo/display/ColourMapMenuItem.h"
#include "orlo/display/CyclingArrowsComponent.h"
#include "orlo/parameters/Params.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/IconDrawable.h"

namespace mk::orlo::lookSheet
{
namespace
{
namespace styleProperty = pluginCore::styleProperty;
using pluginCore::Icon;

constexpr float designWidth = 1818.0f;

/** Lays its widgets out in design pixels. */
class WidgetSheet final : public juce::Component
{
public:
    explicit WidgetSheet (int editorWidth) : scale (float (editorWidth) / designWidth)
    {
        addSideBar();
        addPanel();
        addStates();
        setSize (int (1200.0f * scale), int (1000.0f * scale));
    }

    void paint (juce::Graphics& g) override
    {
        g.fillAll (findColour (colourId::panelBackground));
        g.setColour (findColour (colourId::sideBarBackground));
        g.fillRect (scaled ({ 0, 0, 90, 1000 }));
        g.setColour (juce::Colour (pluginCore::palette::hairline));
        g.fillRect (scaled ({ 89, 0, 1, 1000 }));

        // The floating buttons lie on a bright picture.
        const auto picture = scaled ({ 560, 760, 600, 200 });
        g.setGradientFill (juce::ColourGradient::horizontal (
            juce::Colours::black, float (picture.getX()), juce::Colours::yellow, float (picture.getRight())));
        g.fillRect (picture);
    }

    void resized() override
    {
        for (const auto& [widget, area] : places)
            widget->setBounds (scaled (area));
    }

private:
    template <typename Widget>
    Widget& add (std::unique_ptr<Widget> widget, juce::Rectangle<int> area)
    {
        auto& reference = *widget;
        addAndMakeVisible (reference);
        places.emplace_back (std::move (widget), area);
        return reference;
    }

    [[nodiscard]] juce::Rectangle<int> scaled (juce::Rectangle<int> area) const
    {
        return (area.toFloat() * scale).toNearestInt();
    }

    juce::DrawableButton& addIcon (Icon icon, juce::Rectangle<int> area)
    {
        auto& button = add (std::make_unique<juce::DrawableButton> ("icon", juce::DrawableButton::ImageFitted), area);
        pluginCore::setIcon (button, icon);
        return button;
    }

    void addSwitch (Icon icon, juce::Rectangle<int> area, bool isOn)
    {
        auto& button = addIcon (icon, area);
        pluginCore::setSwitchIcon (button, icon);
        button.setToggleState (isOn, juce::dontSendNotification);
    }

    void addLabel (const juce::String& text, int category, juce::Rectangle<int> area, bool alignRight)
    {
        auto& label = add (std::make_unique<juce::Label> (juce::String(), text), area);
        label.getProperties().set (styleProperty::cat, category);
        label.setJustificationType (alignRight ? juce::Justification::centredRight : juce::Justification::centredLeft);
        label.setColour (juce::Label::textColourId,
                         findColour (category < 2 ? colourId::panelHeadingText : colourId::panelLabelText));
    }

    juce::ComboBox& addBox (const juce::String& text, juce::Rectangle<int> area)
    {
        auto& box = add (std::make_unique<juce::ComboBox>(), area);
        box.addItem (text, 1);
        box.setSelectedId (1);
        return box;
    }

    juce::Slider& addSlider (double value, const juce::String& suffix, juce::Rectangle<int> area, bool reversed = false)
    {
        auto& slider =
            add (std::make_unique<juce::Slider> (juce::Slider::LinearHorizontal, juce::Slider::TextBoxLeft), area);
        slider.getProperties().set (styleProperty::buttonSlider, true);
        slider.getProperties().set (styleProperty::reversed, reversed);
        slider.setRange (0.0, 100.0, 1.0);
        slider.setTextValueSuffix (suffix);
        slider.setValue (value);
        return slider;
    }

    void addSideBar()
    {
        addIcon (Icon::settings, { 15, 15, 60, 60 }).setToggleState (true, juce::dontSendNotification);
        addSwitch (Icon::freeze, { 15, 94, 60, 60 }, true);
        addIcon (Icon::exportPicture, { 17, 185, 56, 56 });
        addIcon (Icon::about, { 15, 920, 60, 60 }).setState (juce::Button::buttonOver);
    }

    [[nodiscard]] static juce::Rectangle<int> inPanel (int x, int y, int width, int height)
    {
        constexpr auto perUnit = 418.0f / 402.0f;
        return juce::Rectangle<float> (90.0f + float (x) * perUnit, float (y), float (width) * perUnit, float (height))
            .toNearestInt();
    }

    void addPanel()
    {
        addLabel ("Settings", 0, inPanel (21, 27, 307, 60), false);
        auto& presets = addIcon (Icon::presets, inPanel (200, 36, 46, 46));
        presets.getProperties().set (styleProperty::bg, true);
        presets.setEdgeIndent (int (12.0f * scale));
        addLabel ("Analysis", 1, inPanel (31, 119, 371, 40), false);
        add (std::make_unique<ButtonBarComponent> (parameters, Params::id::mode), inPanel (34, 175, 334, 60));
        addLabel ("FFT Size", 2, inPanel (0, 251, 183, 56), true);
        addBox ("2048", inPanel (199, 251, 169, 56));
        addLabel ("Display", 1, inPanel (31, 347, 371, 40), false);
        add (std::make_unique<ButtonBarComponent> (parameters, Params::id::drawMode), inPanel (34, 403, 278, 60));
        addSwitch (Icon::autoPause, inPanel (324, 403, 40, 56), true);
        addLabel ("Scale", 2, inPanel (0, 479, 157, 56), true);
        addBox ("Mel", inPanel (173, 479, 123, 56));
        addSwitch (Icon::keyboard, inPanel (305, 479, 30, 56), true);
        addSwitch (Icon::ruler, inPanel (338, 479, 30, 56), false);
        addLabel ("Speed", 2, inPanel (0, 551, 157, 39), true);
        addSlider (50.0, " %", inPanel (173, 551, 196, 39));
        addLabel ("Max Freq", 2, inPanel (0, 602, 157, 39), true);
        addSlider (100.0, "", inPanel (173, 602, 196, 39)).textFromValueFunction = [] (double) { return "22050 Hz"; };
        addLabel ("Min Freq", 2, inPanel (0, 653, 157, 39), true);
        addSlider (0.0, " Hz", inPanel (173, 653, 196, 39));
        addLabel ("Colour", 1, inPanel (31, 732, 371, 40), false);
        add (std::make_unique<ColourComboBoxControl> (parameters, Params::id::colourMap), inPanel (34, 788, 253, 56));
        auto& arrows = add (std::make_unique<CyclingArrowsComponent>(), inPanel (293, 794, 73, 44));
        arrows.getNextButton().setState (juce::Button::buttonOver);
        add (std::make_unique<ColourMapPreviewComponent> (0, false), inPanel (34, 860, 334, 44));
        addSlider (10.0, " dB", inPanel (34, 912, 83, 39), true);
        addSlider (60.0, " dB", inPanel (284, 912, 83, 39), true);
    }

    void addStates()
    {
        const std::array states { juce::Button::buttonNormal, juce::Button::buttonOver, juce::Button::buttonDown };
        int x = 560;

        for (const auto buttonState : states)
        {
            add (std::make_unique<juce::TextButton> ("Button"), { x, 40, 170, 56 }).setState (buttonState);
            auto& on = add (std::make_unique<juce::TextButton> ("Button on"), { x, 110, 170, 56 });
            on.setToggleState (true, juce::dontSendNotification);
            on.setState (buttonState);

            auto& withGround = addIcon (Icon::presets, { x, 180, 56, 56 });
            withGround.getProperties().set (styleProperty::bg, true);
            withGround.setEdgeIndent (int (14.0f * scale));
            withGround.setState (buttonState);
            addIcon (Icon::freeze, { x + 80, 180, 56, 56 }).setState (buttonState);
            addIcon (Icon::viewFull, { x, 800, 60, 60 }).setState (buttonState);
            addIcon (Icon::exportPicture, { x + 80, 800, 60, 60 }).setState (buttonState);
            x += 200;
        }

        add (std::make_unique<juce::TextButton> ("Disabled"), { 560, 260, 170, 56 }).setEnabled (false);
        addBox ("Disabled box", { 760, 260, 240, 56 }).setEnabled (false);
        addSlider (40.0, " %", { 560, 340, 196, 39 }).setEnabled (false);
        addSlider (40.0, " %", { 780, 340, 196, 39 }, true);

        auto& range = add (std::make_unique<juce::Slider> (juce::Slider::TwoValueHorizontal, juce::Slider::NoTextBox),
                           { 560, 400, 300, 39 });
        range.setRange (0.0, 100.0);
        range.setMinAndMaxValues (20.0, 70.0);

        auto& upright = add (std::make_unique<juce::Slider> (juce::Slider::LinearVertical, juce::Slider::NoTextBox),
                             { 1100, 260, 39, 240 });
        upright.setValue (7.0);

        auto& turned = add (std::make_unique<juce::Label> (juce::String(), "Upwards"), { 1040, 260, 40, 240 });
        turned.getProperties().set (styleProperty::vertical, true);

        add (std::make_unique<juce::TextEditor>(), { 560, 460, 300, 50 }).setText ("A text field");
        add (std::make_unique<juce::ScrollBar> (true), { 900, 400, 16, 120 }).setRangeLimits (0.0, 100.0);
        static_cast<juce::ScrollBar*> (places.back().first.get())->setCurrentRange (20.0, 40.0);
        for (int i = 0; i < 6; ++i)
        {
            const juce::Rectangle<int> area { 560 + i % 2 * 310, 580 + i / 2 * 54, 300, 50 };
            add (std::make_unique<ColourMapMenuItem> (2 + 5 * i, *this), area).setHighlighted (i == 3);
        }

        add (std::make_unique<juce::ToggleButton> ("A toggle"), { 560, 530, 200, 40 })
            .setToggleState (true, juce::dontSendNotification);
    }

    juce::AudioProcessorGraph processor;
    juce::AudioProcessorValueTreeState parameters { processor, nullptr, "PARAMS", Params::createLayout() };
    const float scale;
    std::vector<std::pair<std::unique_ptr<juce::Component>, juce::Rectangle<int>>> places;
};
} // namespace

std::unique_ptr<juce::Component> makeWidgetSheet (int editorWidth)
{
    return std::make_unique<WidgetSheet> (editorWidth);
}

} // namespace mk::orlo::lookSheet
