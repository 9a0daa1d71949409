// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/ButtonBarComponent.h"
#include "orlo/look/OrloColours.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "plugin_core/look/StyleProperties.h"
#include "plugin_core/look/icons/IconDrawable.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::distance;
using test::drawnImage;
using test::findInk;
using test::snapshotOf;
namespace styleProperty = pluginCore::styleProperty;

const juce::Colour face (0xFF305070);

class ButtonDrawingTest : public testing::Test
{
protected:
    ButtonDrawingTest() { window.add (button, { 0, 0, 100, 40 }); }

    [[nodiscard]] juce::Image draw (bool isOver = false, bool isDown = false)
    {
        return drawnImage (
            100, 40, [&] (juce::Graphics& g) { window.style.drawButtonBackground (g, button, face, isOver, isDown); });
    }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::TextButton button;
};

TEST_F (ButtonDrawingTest, AButtonIsARoundedRectangleInsetByOneAndAHalf)
{
    const auto image = draw();
    EXPECT_EQ (findInk (image), juce::Rectangle<int> (1, 1, 98, 38));
    EXPECT_LE (distance (image.getPixelAt (50, 20), face.withMultipliedSaturation (0.9f)), 1);
    EXPECT_NEAR (int (image.getPixelAt (1, 20).getAlpha()), 128, 2);

    // With a radius of 10 the point 2 pixels in from the corner on the diagonal is outside, 6 inside.
    EXPECT_EQ (image.getPixelAt (3, 3).getAlpha(), 0);
    EXPECT_EQ (image.getPixelAt (7, 7).getAlpha(), 255);
}

TEST_F (ButtonDrawingTest, TheRadiusShrinksWithTheWindow)
{
    window.window.setSize (182, 100);
    EXPECT_EQ (draw().getPixelAt (3, 3).getAlpha(), 255);
}

TEST_F (ButtonDrawingTest, ADisabledButtonHasHalfTheAlpha)
{
    button.setEnabled (false);
    EXPECT_NEAR (int (draw().getPixelAt (50, 20).getAlpha()), 128, 1);
}

TEST_F (ButtonDrawingTest, AButtonInADisabledParentHasHalfTheAlpha)
{
    window.window.setEnabled (false);
    EXPECT_NEAR (int (draw().getPixelAt (50, 20).getAlpha()), 128, 1);
}

TEST_F (ButtonDrawingTest, TheMouseRaisesTheContrast)
{
    const auto plain = face.withMultipliedSaturation (0.9f);
    EXPECT_LE (distance (draw (true, false).getPixelAt (50, 20), plain.contrasting (0.05f)), 1);
    EXPECT_LE (distance (draw (true, true).getPixelAt (50, 20), plain.contrasting (0.2f)), 1);
    EXPECT_LE (distance (draw (false, true).getPixelAt (50, 20), plain.contrasting (0.2f)), 1);
}

TEST_F (ButtonDrawingTest, ConnectedSidesHaveSquareCorners)
{
    button.setConnectedEdges (juce::Button::ConnectedOnRight);
    const auto image = draw();
    EXPECT_EQ (image.getPixelAt (2, 2).getAlpha(), 0);
    EXPECT_EQ (image.getPixelAt (2, 37).getAlpha(), 0);
    EXPECT_EQ (image.getPixelAt (97, 2).getAlpha(), 255);
    EXPECT_EQ (image.getPixelAt (97, 37).getAlpha(), 255);

    button.setConnectedEdges (juce::Button::ConnectedOnTop);
    EXPECT_EQ (draw().getPixelAt (2, 2).getAlpha(), 255);
    EXPECT_EQ (draw().getPixelAt (2, 37).getAlpha(), 0);
}

TEST_F (ButtonDrawingTest, AConnectedButtonThatIsOnHasALineInTheFocusColour)
{
    button.setConnectedEdges (juce::Button::ConnectedOnRight);
    const auto line = window.style.findColour (juce::ComboBox::focusedOutlineColourId);

    EXPECT_GT (distance (draw().getPixelAt (50, 0), line), 20);
    EXPECT_LE (distance (draw (false, true).getPixelAt (50, 0), line), 1) << "down counts as on";
    button.setToggleState (true, juce::dontSendNotification);
    EXPECT_LE (distance (draw().getPixelAt (50, 0), line), 1);
}

TEST_F (ButtonDrawingTest, OnlyAFreeButtonOfABarHasAnOutline)
{
    ButtonBarComponent bar ({ "alone" });
    window.add (bar, { 0, 100, 100, 40 });
    auto& inBar = bar.getButton (0);
    ASSERT_EQ (inBar.getConnectedEdgeFlags(), 0);

    const auto image = drawnImage (
        100, 40, [&] (juce::Graphics& g) { window.style.drawButtonBackground (g, inBar, face, false, false); });
    const auto outline = window.style.findColour (colourId::barButtonOutline);

    EXPECT_LE (distance (image.getPixelAt (50, 1), outline), 1);
    EXPECT_GT (distance (draw().getPixelAt (50, 2), outline), 5);
}

TEST_F (ButtonDrawingTest, TextScalesWithTheWindowAndStaysInTheButton)
{
    button.setButtonText ("Enhanced");

    for (const auto width : { 400, 1818, 3636 })
    {
        window.window.setSize (width, width / 2);
        button.setSize (width * 167 / 1818, width * 60 / 1818);
        const auto image =
            drawnImage (button.getWidth(),
                        button.getHeight(),
                        [&] (juce::Graphics& g) { window.style.drawButtonText (g, button, false, false); });
        const auto ink = findInk (image);
        EXPECT_TRUE (button.getLocalBounds().reduced (1).contains (ink)) << width;
        EXPECT_GT (ink.getWidth(), button.getWidth() / 2) << width;
        EXPECT_LT (ink.getWidth(), button.getWidth() * 9 / 10) << width;
    }
}

TEST_F (ButtonDrawingTest, OneFontIsForButtonsAndMenus)
{
    EXPECT_EQ (window.style.getTextButtonFont (button, 40), window.style.getPopupMenuFont());
    EXPECT_EQ (window.style.getPopupMenuFont().getTypefacePtr(),
               window.style.getFont (PluginLookAndFeel::Face::semiBold).getTypefacePtr());
}

TEST_F (ButtonDrawingTest, TheWidthThatAButtonsTextNeedsIsThatOfTheDrawnText)
{
    button.setButtonText ("proceed to download page");
    button.setSize (button.getBestWidthForHeight (60), 60);
    const auto image = drawnImage (
        button.getWidth(), 60, [&] (juce::Graphics& g) { window.style.drawButtonText (g, button, false, false); });
    const auto width = juce::GlyphArrangement::getStringWidth (window.style.getPopupMenuFont().withHeight (33.0f),
                                                               button.getButtonText());
    EXPECT_NEAR (float (findInk (image).getWidth()), width, 6.0f);
}

//==============================================================================
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

TEST_F (DrawableButtonTest, TheImagesOpacityTellsTheState)
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

TEST_F (DrawableButtonTest, OnlyTheBackgroundPropertyGivesAGround)
{
    EXPECT_EQ (snapshotOf (button).getPixelAt (30, 9).getAlpha(), 0);
    button.getProperties().set (styleProperty::bg, true);
    const auto image = snapshotOf (button);

    EXPECT_EQ (image.getPixelAt (30, 4).getAlpha(), 0) << "inset by 5";
    EXPECT_LE (distance (image.getPixelAt (30, 5), window.style.findColour (juce::ComboBox::outlineColourId)), 1);
    EXPECT_LE (distance (image.getPixelAt (30, 6), window.style.findColour (juce::ComboBox::outlineColourId)), 1);

    const auto ground = pluginCore::raised (window.style.findColour (juce::ComboBox::backgroundColourId));
    EXPECT_LE (distance (image.getPixelAt (30, 9), ground), 1);
}

TEST_F (DrawableButtonTest, TheGroundsInsetFollowsTheWindow)
{
    button.getProperties().set (styleProperty::bg, true);
    window.window.setSize (3636, 2000);
    EXPECT_EQ (snapshotOf (button).getPixelAt (30, 9).getAlpha(), 0);
    EXPECT_GT (snapshotOf (button).getPixelAt (30, 10).getAlpha(), 250);
}

//==============================================================================
TEST (ButtonBarComponentTest, ButtonsShareTheWidthAndOverlapByAPixel)
{
    for (const auto width : { 0, 1, 2, 100, 201, 334 })
    {
        for (const auto count : { 1, 2, 3, 5 })
        {
            int right = 0;

            for (int i = 0; i < count; ++i)
            {
                const auto bounds = ButtonBarComponent::getButtonBounds (i, count, width, 60);
                EXPECT_EQ (bounds.getHeight(), 60);
                EXPECT_EQ (bounds.getX(), i == 0 ? 0 : right - 1);
                EXPECT_NEAR (bounds.getWidth() - (i + 1 < count ? 1 : 0), width / count, 1);
                right = bounds.getRight();
            }

            EXPECT_EQ (right, width);
        }
    }
}

TEST (ButtonBarComponentTest, OneButtonIsOnAtATime)
{
    ButtonBarComponent bar ({ "Classic", "Enhanced" });
    bar.getButton (0).setToggleState (true, juce::dontSendNotification);
    bar.getButton (1).setToggleState (true, juce::dontSendNotification);
    EXPECT_FALSE (bar.getButton (0).getToggleState());
    EXPECT_EQ (int (bar.getButton (0).getProperties()[styleProperty::cat]), 2);
    EXPECT_TRUE (bar.getButton (0).isConnectedOnRight());
    EXPECT_FALSE (bar.getButton (0).isConnectedOnLeft());
}
} // namespace
} // namespace mk::orlo
