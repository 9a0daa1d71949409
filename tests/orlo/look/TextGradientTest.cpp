// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/PluginLookAndFeel.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
namespace styleProperty = pluginCore::styleProperty;

class TextGradientTest : public testing::Test
{
protected:
    TextGradientTest()
    {
        label.getProperties().set (styleProperty::cat, 0);
        label.getProperties().set (styleProperty::grad, true);
        label.setColour (juce::Label::textColourId, juce::Colours::white);
        window.add (label, { 0, 0, 300, 100 });
    }

    /** The brightness of the brightest text pixel in each row, or -1 if the row has no fully covered pixel. */
    [[nodiscard]] std::vector<int> rows()
    {
        const auto image = test::snapshotOf (label);
        std::vector<int> brightest;

        for (int y = 0; y < image.getHeight(); ++y)
        {
            int best = -1;

            for (int x = 0; x < image.getWidth(); ++x)
                if (const auto pixel = image.getPixelAt (x, y); pixel.getAlpha() == 255)
                    best = std::max (best, int (pixel.getRed()));

            brightest.push_back (best);
        }

        return brightest;
    }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::Label label { {}, "HHHH" };
};

TEST_F (TextGradientTest, TheTextDarkensBetweenItsTwoHeights)
{
    const auto rowsOfText = rows();
    EXPECT_GE (rowsOfText[38], 245) << "the gradient starts at 0.355 of the height";
    EXPECT_LT (rowsOfText[50], 250);
    EXPECT_LT (rowsOfText[58], rowsOfText[50]);
    EXPECT_EQ (rowsOfText[61], rowsOfText[63]) << "the gradient ends at 0.6 of the height";
    EXPECT_EQ (rowsOfText[63], int (juce::Colours::white.darker (0.3f).getRed()));
}

TEST_F (TextGradientTest, TheGradientCanBeShifted)
{
    label.getProperties().set (styleProperty::gradYProp, 0.2);
    EXPECT_EQ (rows()[50], 255);
}

TEST_F (TextGradientTest, WithoutThePropertyTheTextHasOneColour)
{
    label.getProperties().remove (styleProperty::grad);
    EXPECT_EQ (rows()[63], 255);
}

TEST_F (TextGradientTest, TheLabelKeepsItsBackgroundAndItsOutline)
{
    label.setColour (juce::Label::backgroundColourId, juce::Colours::blue);
    label.setColour (juce::Label::outlineColourId, juce::Colours::red);
    const auto image = test::snapshotOf (label);
    EXPECT_EQ (image.getPixelAt (0, 0), juce::Colours::red);
    EXPECT_EQ (image.getPixelAt (299, 99), juce::Colours::red);
    EXPECT_EQ (image.getPixelAt (1, 1), juce::Colours::blue);
    EXPECT_EQ (image.getPixelAt (298, 98), juce::Colours::blue);
}

TEST_F (TextGradientTest, DisabledTextIsDimmedToo)
{
    label.setEnabled (false);
    const auto image = test::snapshotOf (label);
    int strongest = 0;

    for (int x = 0; x < image.getWidth(); ++x)
        for (int y = 0; y < image.getHeight(); ++y)
            strongest = std::max (strongest, int (image.getPixelAt (x, y).getAlpha()));

    EXPECT_NEAR (strongest, 102, 1);
}
} // namespace
} // namespace mk::orlo
