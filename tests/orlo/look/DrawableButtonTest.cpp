// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/PluginLookAndFeel.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/IconDrawable.h"
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

class DrawableButtonTest : public testing::Test
{
protected:
    DrawableButtonTest()
    {
        pluginCore::setIcon (button, pluginCore::Icon::close);
        window.add (button, { 0, 0, 60, 60 });
    }

    [[nodiscard]] float imageAlphaAfterPainting (juce::Button::ButtonState state)
    {
        button.setState (state);
        (void) snapshotOf (button);
        return button.getCurrentImage()->getAlpha();
    }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::DrawableButton button { "button", juce::DrawableButton::ImageFitted };
};

TEST_F (DrawableButtonTest, TheImagesOpacityShowsTheState)
{
    EXPECT_NEAR (imageAlphaAfterPainting (juce::Button::buttonNormal), 0.4f, 0.005f);
    EXPECT_NEAR (imageAlphaAfterPainting (juce::Button::buttonOver), 0.6f, 0.005f);
    EXPECT_NEAR (imageAlphaAfterPainting (juce::Button::buttonDown), 0.8f, 0.005f);

    button.setToggleState (true, juce::dontSendNotification);
    EXPECT_NEAR (imageAlphaAfterPainting (juce::Button::buttonNormal), 0.6f, 0.005f);
}

TEST_F (DrawableButtonTest, ADisabledImageHasHalfTheOpacity)
{
    button.setEnabled (false);
    EXPECT_NEAR (imageAlphaAfterPainting (juce::Button::buttonNormal), 0.2f, 0.005f);
}

TEST_F (DrawableButtonTest, TheImageIsPaintedAtItsOpacityInTheSamePass)
{
    button.getProperties().set (styleProperty::noShadows, true);
    EXPECT_NEAR (int (snapshotOf (button).getPixelAt (30, 30).getAlpha()), 102, 2);
}

TEST_F (DrawableButtonTest, ItsShadowCanBeLeftOut)
{
    const auto withShadow = findInk (snapshotOf (button));
    button.getProperties().set (styleProperty::noShadows, true);
    const auto without = findInk (snapshotOf (button));
    EXPECT_GT (withShadow.getBottom(), without.getBottom());
}

TEST_F (DrawableButtonTest, OnlyTheBackgroundPropertyPaintsABackground)
{
    EXPECT_EQ (snapshotOf (button).getPixelAt (30, 9).getAlpha(), 0);
    button.getProperties().set (styleProperty::bg, true);
    const auto image = snapshotOf (button);

    EXPECT_EQ (image.getPixelAt (30, 4).getAlpha(), 0) << "the background is inset by 5";
    EXPECT_LE (distance (image.getPixelAt (30, 5), window.style.findColour (juce::ComboBox::outlineColourId)), 1);
    EXPECT_LE (distance (image.getPixelAt (30, 6), window.style.findColour (juce::ComboBox::outlineColourId)), 1);

    const auto ground = pluginCore::raised (window.style.findColour (juce::ComboBox::backgroundColourId));
    EXPECT_LE (distance (image.getPixelAt (30, 9), ground), 1);
}

TEST_F (DrawableButtonTest, TheBackgroundsInsetFollowsTheWindow)
{
    button.getProperties().set (styleProperty::bg, true);
    window.window.setSize (3636, 2000);
    EXPECT_EQ (snapshotOf (button).getPixelAt (30, 9).getAlpha(), 0);
    EXPECT_GT (snapshotOf (button).getPixelAt (30, 10).getAlpha(), 250);
}
} // namespace
} // namespace mk::orlo
