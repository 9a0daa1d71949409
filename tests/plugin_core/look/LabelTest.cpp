// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using Face = LookAndFeel::Face;
using orlo::test::findInk;
using orlo::test::snapshotOf;

class LabelTest : public testing::Test
{
protected:
    LabelTest() { window.add (label, { 10, 10, 400, 100 }); }

    void set (const juce::Identifier& name, const juce::var& value) { label.getProperties().set (name, value); }

    [[nodiscard]] juce::Font font() { return window.style.getLabelFont (label); }

    orlo::test::StyledWindow<LookAndFeel> window { 909 };
    juce::Label label { {}, "Hg" };
};

TEST_F (LabelTest, ALabelWithoutAnyPropertyKeepsTheFontItWasGiven)
{
    label.setFont (juce::FontOptions (21.0f));
    EXPECT_FLOAT_EQ (font().getHeight(), 21.0f);
}

TEST_F (LabelTest, TheSizeClassGivesHeightAndFace)
{
    set (styleProperty::cat, 0);
    EXPECT_FLOAT_EQ (font().getHeight(), 27.5f);
    EXPECT_EQ (font().getTypefacePtr(), window.style.getFont (Face::bold).getTypefacePtr());

    set (styleProperty::cat, 2);
    EXPECT_FLOAT_EQ (font().getHeight(), 16.5f);
    EXPECT_EQ (font().getTypefacePtr(), window.style.getFont (Face::semiBold).getTypefacePtr());
}

TEST_F (LabelTest, AFactorWithoutAClassMeansClassTwo)
{
    set (styleProperty::fontScale, 2.0);
    EXPECT_FLOAT_EQ (font().getHeight(), 33.0f);
}

TEST_F (LabelTest, BoldTakesTheBoldFaceInEveryClass)
{
    set (styleProperty::bold, true);
    EXPECT_EQ (font().getTypefacePtr(), window.style.getFont (Face::bold).getTypefacePtr());
    EXPECT_FLOAT_EQ (font().getHeight(), 16.5f);

    set (styleProperty::cat, 4);
    EXPECT_EQ (font().getTypefacePtr(), window.style.getFont (Face::bold).getTypefacePtr());
}

TEST_F (LabelTest, TextIsNeverHigherThanItsLabel)
{
    set (styleProperty::cat, 0);
    label.setSize (400, 12);
    EXPECT_FLOAT_EQ (font().getHeight(), 10.0f) << "less the label's border of 1";

    label.setSize (400, 0);
    EXPECT_GE (font().getHeight(), 1.0f);
}

TEST_F (LabelTest, RotatedTextIsLimitedByTheLabelsWidth)
{
    set (styleProperty::cat, 0);
    set (styleProperty::vertical, true);
    label.setSize (14, 200);
    EXPECT_FLOAT_EQ (font().getHeight(), 12.0f);
}

TEST_F (LabelTest, RotatedTextRunsUpwardsInsideItsLabel)
{
    label.setText ("Upwards", juce::dontSendNotification);
    label.setJustificationType (juce::Justification::centredLeft);
    set (styleProperty::vertical, true);
    label.setSize (30, 200);

    const auto ink = findInk (snapshotOf (label));
    EXPECT_GT (ink.getHeight(), 3 * ink.getWidth());
    EXPECT_GT (ink.getBottom(), 190);
    EXPECT_TRUE (label.getLocalBounds().reduced (1).contains (ink));
}

TEST_F (LabelTest, AllOfAShortTextFitsAtEveryWindowWidth)
{
    label.setText ("Max Freq", juce::dontSendNotification);
    set (styleProperty::cat, 2);

    for (const auto width : { 400, 909, 1818, 3840 })
    {
        window.window.setSize (width, 600);
        label.setBounds (0, 0, width * 157 / 1818, width * 39 / 1818);
        const auto ink = findInk (snapshotOf (label));
        EXPECT_FALSE (ink.isEmpty()) << width;

        EXPECT_TRUE (label.getLocalBounds().reduced (1).contains (ink)) << width;
    }
}

TEST_F (LabelTest, DisabledTextIsDrawnAtFortyPercent)
{
    set (styleProperty::cat, 0);
    label.setText ("HHHH", juce::dontSendNotification);

    const auto strongest = [this]
    {
        const auto image = snapshotOf (label);
        int alpha = 0;

        for (int y = 0; y < image.getHeight(); ++y)
            for (int x = 0; x < image.getWidth(); ++x)
                alpha = std::max (alpha, int (image.getPixelAt (x, y).getAlpha()));

        return alpha;
    };

    EXPECT_EQ (strongest(), 255);
    label.setEnabled (false);
    EXPECT_NEAR (strongest(), 102, 1);
}

TEST_F (LabelTest, BackgroundAndFrameArePaintedInTheLabelsColours)
{
    label.setText ({}, juce::dontSendNotification);
    label.setColour (juce::Label::backgroundColourId, juce::Colours::navy);
    label.setColour (juce::Label::outlineColourId, juce::Colours::red);
    const auto image = snapshotOf (label);

    EXPECT_EQ (image.getPixelAt (50, 50), juce::Colours::navy);
    EXPECT_EQ (image.getPixelAt (0, 50), juce::Colours::red);
    EXPECT_EQ (image.getPixelAt (399, 99), juce::Colours::red);
}

TEST_F (LabelTest, AnEditedLabelHasTheFrameOfAFocusedField)
{
    ASSERT_TRUE (window.style.isColourSpecified (juce::Label::outlineWhenEditingColourId));
    EXPECT_EQ (window.style.findColour (juce::Label::outlineWhenEditingColourId),
               window.style.findColour (juce::TextEditor::focusedOutlineColourId));
}

} // namespace
} // namespace mk::pluginCore
