// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/controls/ButtonBarComponent.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/parameters/Params.h"
#include "orlo/style/OrloColours.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Screen.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::distance;
using test::drawnImage;
using test::findInk;

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

    // At a radius of 10 the diagonal point 2 pixels from the corner is outside the curve, and that at 6 is inside.
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
    EXPECT_LE (distance (draw (false, true).getPixelAt (50, 0), line), 1) << "a pressed button counts as on";
    button.setToggleState (true, juce::dontSendNotification);
    EXPECT_LE (distance (draw().getPixelAt (50, 0), line), 1);
}

/** Buttons in a window on the screen, since only there can one of them have the keyboard focus. */
class FocusedButtonTest : public ButtonDrawingTest
{
protected:
    void SetUp() override
    {
        if (! test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "no display";

        window.add (bar, { 0, 100, 101, 40 });
        window.show();
    }

    [[nodiscard]] static bool giveKeyboardTo (juce::Component& component)
    {
        // A window that is not on the screen yet cannot take the focus.
        return test::pumpUntil (
            [&]
            {
                component.grabKeyboardFocus();
                return component.hasKeyboardFocus (false);
            });
    }

    [[nodiscard]] bool isFrame (const juce::Image& image, int x, int y) const
    {
        // The renderer leaves a 256th of the last column before the edge of a component unpainted.
        constexpr auto tolerance = 4;
        return distance (image.getPixelAt (x, y), window.style.findColour (juce::ComboBox::focusedOutlineColourId))
               <= tolerance;
    }

    juce::AudioProcessorGraph owner;
    juce::AudioProcessorValueTreeState state { owner, nullptr, "PARAMS", Params::createLayout() };
    ButtonBarComponent bar { state, Params::id::mode };
};

TEST_F (FocusedButtonTest, AButtonOfABarHasAFrameOfTwoPixelsOnAllSidesWhetherItIsOnOrOff)
{
    for (const auto index : { 0, 1 })
    {
        auto& focused = bar.getButton (index);
        ASSERT_TRUE (giveKeyboardTo (focused));
        const auto image = test::snapshotOf (bar);

        // The right button covers the last pixel of the left one.
        const auto seen = index == 0 ? focused.getBounds().withTrimmedRight (1) : focused.getBounds();
        const auto middle = seen.getCentre();

        for (const auto i : { 0, 1 })
        {
            SCOPED_TRACE (juce::String (index) + " " + juce::String (i));
            EXPECT_TRUE (isFrame (image, middle.x, seen.getY() + i));
            EXPECT_TRUE (isFrame (image, middle.x, seen.getBottom() - 1 - i));
            EXPECT_TRUE (isFrame (image, seen.getX() + i, middle.y));
            EXPECT_TRUE (isFrame (image, seen.getRight() - 1 - i, middle.y));
        }

        EXPECT_FALSE (isFrame (image, middle.x, seen.getY() + 3)) << "the frame does not reach into the button";
        EXPECT_FALSE (isFrame (image, bar.getButton (1 - index).getBounds().getCentreX(), 1)) << "not focused";
    }
}

TEST_F (FocusedButtonTest, ASingleButtonHasTheFrameAlongItsEdge)
{
    EXPECT_FALSE (isFrame (test::snapshotOf (button), 50, 2));
    ASSERT_TRUE (giveKeyboardTo (button));
    const auto image = test::snapshotOf (button);
    EXPECT_TRUE (isFrame (image, 50, 2));
    EXPECT_TRUE (isFrame (image, 50, 37));
    EXPECT_TRUE (isFrame (image, 2, 20));
    EXPECT_TRUE (isFrame (image, 97, 20));
    EXPECT_FALSE (isFrame (image, 50, 5));
}

TEST_F (ButtonDrawingTest, OnlyAFreeButtonOfABarHasAnOutline)
{
    juce::AudioProcessorGraph owner;
    juce::AudioProcessorValueTreeState state { owner, nullptr, "PARAMS", Params::createLayout() };
    ButtonBarComponent bar (state, Params::id::mode);
    window.add (bar, { 0, 100, 100, 40 });
    auto& inBar = bar.getButton (0);
    inBar.setConnectedEdges (0);
    inBar.setBounds (bar.getLocalBounds());

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

TEST_F (ButtonDrawingTest, ButtonsAndMenusHaveTheSameFont)
{
    EXPECT_EQ (window.style.getTextButtonFont (button, 40), window.style.getPopupMenuFont());
    EXPECT_EQ (window.style.getPopupMenuFont().getTypefacePtr(),
               window.style.getFont (PluginLookAndFeel::Face::semiBold).getTypefacePtr());
}

TEST_F (ButtonDrawingTest, TheBestWidthOfAButtonFitsTheDrawnText)
{
    button.setButtonText ("proceed to download page");
    button.setSize (button.getBestWidthForHeight (60), 60);
    const auto image = drawnImage (
        button.getWidth(), 60, [&] (juce::Graphics& g) { window.style.drawButtonText (g, button, false, false); });
    const auto width = juce::GlyphArrangement::getStringWidth (window.style.getPopupMenuFont().withHeight (33.0f),
                                                               button.getButtonText());
    EXPECT_NEAR (float (findInk (image).getWidth()), width, 6.0f);
}
} // namespace
} // namespace mk::orlo
