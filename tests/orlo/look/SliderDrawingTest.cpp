// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/look/SliderLabelComp.h"
#include "plugin_core/controls/ParameterSlider.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/Mouse.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::distance;
using test::findInk;
using test::snapshotOf;
namespace styleProperty = pluginCore::styleProperty;

class SliderDrawingTest : public testing::Test
{
protected:
    SliderDrawingTest()
    {
        slider.setRange (0.0, 100.0, 0.0);
        slider.setValue (40.0, juce::dontSendNotification);
        window.add (control, { 0, 0, 200, 40 });
        control.addAndMakeVisible (slider);
        slider.setBounds (control.getLocalBounds());
    }

    void useAsButton()
    {
        control.getProperties().set (styleProperty::buttonSlider, true);
        slider.setTextBoxStyle (juce::Slider::TextBoxLeft, false, 80, 20);
        slider.lookAndFeelChanged();
    }

    [[nodiscard]] PluginLookAndFeel::SliderLabelComp* textBox()
    {
        for (auto* child : slider.getChildren())
            if (auto* box = dynamic_cast<PluginLookAndFeel::SliderLabelComp*> (child))
                return box;

        return nullptr;
    }

    [[nodiscard]] juce::Colour fullColour() const
    {
        return pluginCore::raised (window.style.findColour (juce::Slider::thumbColourId));
    }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::Component control;
    juce::Slider slider { juce::Slider::LinearHorizontal, juce::Slider::NoTextBox };
};

TEST_F (SliderDrawingTest, TheBarIsFullUpToTheValueAndHalfTransparentBeyond)
{
    const auto image = snapshotOf (slider);
    EXPECT_LE (distance (image.getPixelAt (40, 20), fullColour()), 1);
    EXPECT_NEAR (int (image.getPixelAt (150, 20).getAlpha()), 128, 1);
    EXPECT_LE (distance (image.getPixelAt (150, 20).withAlpha (juce::uint8 (255)), fullColour()), 2);
}

TEST_F (SliderDrawingTest, TheBarIsInsetByTwoAndAHalfWithTheWindowsRadius)
{
    const auto image = snapshotOf (slider);
    EXPECT_EQ (findInk (image, { 90, 0, 40, 40 }).getY(), 2);
    EXPECT_EQ (findInk (image, { 90, 0, 40, 40 }).getBottom(), 38);
    EXPECT_EQ (image.getPixelAt (196 - 2, 4).getAlpha(), 0);

    window.window.setSize (182, 100);
    EXPECT_GT (snapshotOf (slider).getPixelAt (196 - 3, 4).getAlpha(), 100);
}

TEST_F (SliderDrawingTest, AReversedBarIsFullFromTheMaximumEnd)
{
    control.getProperties().set (styleProperty::reversed, true);
    const auto image = snapshotOf (slider);
    EXPECT_NEAR (int (image.getPixelAt (40, 20).getAlpha()), 128, 1);
    EXPECT_LE (distance (image.getPixelAt (150, 20), fullColour()), 1);
}

TEST_F (SliderDrawingTest, AKnobFivePixelsWideMarksTheValue)
{
    const auto image = snapshotOf (slider);
    const auto knob = window.style.findColour (juce::Slider::trackColourId);
    int width = 0;

    for (int x = 0; x < 200; ++x)
        if (distance (image.getPixelAt (x, 20), knob) <= 1)
            ++width;

    EXPECT_NEAR (width, 4.5, 0.6);
}

TEST_F (SliderDrawingTest, AtBothEndsTheKnobStaysOnTheBar)
{
    const auto knob = window.style.findColour (juce::Slider::trackColourId);
    slider.setValue (0.0, juce::dontSendNotification);
    EXPECT_LE (distance (snapshotOf (slider).getPixelAt (8, 20), knob), 1);
    slider.setValue (100.0, juce::dontSendNotification);
    EXPECT_LE (findInk (snapshotOf (slider)).getRight(), 198);
}

TEST_F (SliderDrawingTest, ATwoValueBarIsFullBetweenItsValues)
{
    slider.setSliderStyle (juce::Slider::TwoValueHorizontal);
    slider.setMinAndMaxValues (25.0, 75.0, juce::dontSendNotification);
    const auto image = snapshotOf (slider);
    EXPECT_NEAR (int (image.getPixelAt (25, 20).getAlpha()), 128, 1);
    EXPECT_LE (distance (image.getPixelAt (100, 20), fullColour()), 1);
    EXPECT_NEAR (int (image.getPixelAt (175, 20).getAlpha()), 128, 1);
}

TEST_F (SliderDrawingTest, TheThumbThatAPressWouldDragIsHighlighted)
{
    pluginCore::ParameterSlider range;
    range.setSliderStyle (juce::Slider::TwoValueHorizontal);
    range.setTextBoxStyle (juce::Slider::NoTextBox, false, 0, 0);
    range.setRange (0.0, 100.0, 0.0);
    range.setMinAndMaxValues (25.0, 75.0, juce::dontSendNotification);
    control.addAndMakeVisible (range);
    range.setBounds (control.getLocalBounds());

    const auto plain = window.style.findColour (juce::Slider::trackColourId);
    const auto bright = window.style.findColour (juce::ComboBox::focusedOutlineColourId);
    const auto minimum = juce::roundToInt (range.getPositionOfValue (25.0));
    const auto maximum = juce::roundToInt (range.getPositionOfValue (75.0));

    const auto expectThumbs = [&] (juce::Colour left, juce::Colour right)
    {
        const auto image = snapshotOf (range);
        EXPECT_LE (distance (image.getPixelAt (minimum, 20), left), 1);
        EXPECT_LE (distance (image.getPixelAt (maximum, 20), right), 1);
    };

    expectThumbs (plain, plain);
    range.mouseMove (test::makeMouseEvent (range, { float (minimum) + 10.0f, 20.0f }));
    expectThumbs (bright, plain);
    range.mouseMove (test::makeMouseEvent (range, { float (maximum) - 10.0f, 20.0f }));
    expectThumbs (plain, bright);
    range.mouseExit (test::makeMouseEvent (range, { float (maximum), 50.0f }));
    expectThumbs (plain, plain);
}

TEST_F (SliderDrawingTest, AVerticalBarFillsFromTheBottom)
{
    slider.setSliderStyle (juce::Slider::LinearVertical);
    slider.setBounds (0, 0, 40, 200);
    const auto image = snapshotOf (slider);
    EXPECT_NEAR (int (image.getPixelAt (20, 40).getAlpha()), 128, 1);
    EXPECT_LE (distance (image.getPixelAt (20, 160), fullColour()), 1);
}

TEST_F (SliderDrawingTest, ADisabledBarHasHalfTheAlpha)
{
    slider.setEnabled (false);
    EXPECT_NEAR (int (snapshotOf (slider).getPixelAt (150, 20).getAlpha()), 64, 1);
}

TEST_F (SliderDrawingTest, ASliderTooSmallForItsBarDrawsNothing)
{
    slider.setSize (200, 4);
    EXPECT_TRUE (findInk (snapshotOf (slider)).isEmpty());
}

TEST_F (SliderDrawingTest, AButtonSliderAndItsTextFillTheWholeArea)
{
    useAsButton();
    const auto layout = window.style.getSliderLayout (slider);
    EXPECT_EQ (layout.sliderBounds, slider.getLocalBounds());
    EXPECT_EQ (layout.textBoxBounds, slider.getLocalBounds());
}

TEST_F (SliderDrawingTest, ALabelAboveTakesItsTextsHeightFromTheTop)
{
    slider.setTextBoxStyle (juce::Slider::TextBoxAbove, false, 80, 20);
    slider.setSize (200, 100);
    control.getProperties().set (styleProperty::labelAbove, true);
    const auto layout = window.style.getSliderLayout (slider);
    EXPECT_EQ (layout.textBoxBounds, juce::Rectangle<int> (0, 0, 200, 40));
    EXPECT_EQ (layout.sliderBounds, juce::Rectangle<int> (0, 40, 200, 60));

    slider.setSize (200, 40);
    EXPECT_EQ (window.style.getSliderLayout (slider).textBoxBounds.getHeight(), 20) << "at most half of the slider";
}

TEST_F (SliderDrawingTest, TheTextBoxTakesSizeAndJustificationFromSliderOrControl)
{
    useAsButton();
    ASSERT_NE (textBox(), nullptr);
    EXPECT_FLOAT_EQ (window.style.getLabelFont (*textBox()).getHeight(), 33.0f);
    EXPECT_EQ (textBox()->getJustificationType(), juce::Justification::centred);

    control.getProperties().set (styleProperty::cat, 4);
    control.getProperties().set (styleProperty::justification, "left");
    slider.getProperties().set (styleProperty::fontScale, 0.8);
    slider.lookAndFeelChanged();
    EXPECT_FLOAT_EQ (window.style.getLabelFont (*textBox()).getHeight(), 20.0f);
    EXPECT_EQ (textBox()->getJustificationType(), juce::Justification::centredLeft);

    control.getProperties().set (styleProperty::justification, "right");
    slider.lookAndFeelChanged();
    EXPECT_EQ (textBox()->getJustificationType(), juce::Justification::centredRight);

    slider.setSize (200, 12);
    EXPECT_FLOAT_EQ (window.style.getLabelFont (*textBox()).getHeight(), 12.0f);
}

TEST_F (SliderDrawingTest, TheTextBoxHasTheSlidersColours)
{
    slider.setColour (juce::Slider::textBoxTextColourId, juce::Colours::red);
    slider.setColour (juce::Slider::textBoxBackgroundColourId, juce::Colours::green);
    slider.setColour (juce::Slider::textBoxHighlightColourId, juce::Colours::blue);
    slider.setColour (juce::Slider::textBoxOutlineColourId, juce::Colours::pink);
    useAsButton();

    EXPECT_EQ (textBox()->findColour (juce::Label::textColourId), juce::Colours::red);
    EXPECT_EQ (textBox()->findColour (juce::Label::backgroundColourId), juce::Colours::green);
    EXPECT_EQ (textBox()->findColour (juce::Label::outlineColourId), juce::Colours::pink);
    EXPECT_EQ (textBox()->findColour (juce::TextEditor::textColourId), juce::Colours::red);
    EXPECT_EQ (textBox()->findColour (juce::TextEditor::highlightColourId), juce::Colours::blue);
    EXPECT_EQ (textBox()->findColour (juce::TextEditor::outlineColourId), juce::Colours::pink);
}

TEST_F (SliderDrawingTest, ADisabledValueHasEightyPercentOfItsAlpha)
{
    useAsButton();
    slider.textFromValueFunction = [] (double) { return "HHHH"; };
    slider.updateText();
    slider.setEnabled (false);
    const auto image = snapshotOf (*textBox());
    int strongest = 0;

    for (int x = 0; x < image.getWidth(); ++x)
        for (int y = 0; y < image.getHeight(); ++y)
            strongest = std::max (strongest, int (image.getPixelAt (x, y).getAlpha()));

    EXPECT_NEAR (strongest, 204, 1);
}
} // namespace
} // namespace mk::orlo
