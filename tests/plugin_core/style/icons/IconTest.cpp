// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/icons/IconArt.h"
#include "plugin_core/style/icons/IconDrawable.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using orlo::test::drawnImage;
using orlo::test::findInk;
using orlo::test::snapshotOf;

constexpr std::array sizes { 8, 15, 16, 20, 24, 27, 32, 34, 48, 60, 90 };

[[nodiscard]] juce::Image drawn (Icon icon, int size, float scale = 1.0f)
{
    const auto pixels = juce::roundToInt (float (size) * scale);
    return drawnImage (pixels,
                       pixels,
                       [&] (juce::Graphics& g)
                       {
                           g.addTransform (juce::AffineTransform::scale (scale));
                           drawIcon (g, icon, juce::Rectangle<int> (size, size).toFloat(), juce::Colours::white);
                       });
}

[[nodiscard]] int countPartlyCovered (const juce::Image& image, juce::Rectangle<int> area)
{
    int count = 0;

    for (int y = area.getY(); y < area.getBottom(); ++y)
        for (int x = area.getX(); x < area.getRight(); ++x)
            if (const auto alpha = image.getPixelAt (x, y).getAlpha(); alpha > 3 && alpha < 252)
                ++count;

    return count;
}

TEST (IconTest, EveryIconHasMarksThatLieInsideTheGrid)
{
    for (const auto icon : allIcons)
    {
        const auto art = getIconArt (icon);
        EXPECT_FALSE (art.empty()) << int (icon);

        for (const auto& mark : art)
            for (size_t i = 0; i < mark.numValues && mark.kind != IconMark::Kind::arc; ++i)
                EXPECT_TRUE (mark.values[i] >= 0.0f && mark.values[i] <= iconGridSize) << int (icon);
    }
}

TEST (IconTest, TheOutlinesBoundsAreTheWholeSquareSoThatIconsShareOneGrid)
{
    for (const auto icon : allIcons)
        for (const auto size : sizes)
            EXPECT_EQ (makeIconPath (icon, float (size)).getBounds(),
                       juce::Rectangle<float> (float (size), float (size)))
                << int (icon) << " at " << size;
}

TEST (IconTest, EveryIconLeavesAMarginAndFillsAGoodPartOfItsSquare)
{
    for (const auto icon : allIcons)
    {
        const auto ink = findInk (drawn (icon, 48));
        EXPECT_TRUE (juce::Rectangle<int> (48, 48).reduced (1).contains (ink)) << int (icon) << " " << ink.toString();
        EXPECT_GE (std::max (ink.getWidth(), ink.getHeight()), 20) << int (icon);
    }
}

TEST (IconTest, NoTwoIconsLookTheSame)
{
    for (const auto a : allIcons)
        for (const auto b : allIcons)
            if (a != b)
            {
                EXPECT_NE (makeIconPath (a, 24.0f), makeIconPath (b, 24.0f)) << int (a) << " " << int (b);
            }
}

TEST (IconTest, UprightAndLevelStrokesHaveSharpEdgesAtEverySize)
{
    // The four corners of the Full View's icon, without the round ends: every pixel is painted fully or not at all.
    for (const auto size : { 15, 16, 20, 24, 27, 32, 34, 48, 60, 90 })
    {
        const auto image = drawn (Icon::viewFull, size);
        const auto row = size / 4;
        EXPECT_EQ (countPartlyCovered (image, { 0, row, size, 1 }), 0) << size;
        EXPECT_GT (findInk (image, { 0, row, size, 1 }).getWidth(), 0) << size;
    }
}

TEST (IconTest, StrokesAreSharpAtFractionalDisplayScales)
{
    for (const auto scale : { 1.0f, 1.25f, 1.5f, 2.0f })
    {
        const auto image = drawn (Icon::viewFull, 24, scale);
        const auto row = juce::roundToInt (24.0f * scale * 7.0f / 24.0f);
        EXPECT_EQ (countPartlyCovered (image, { 0, row, image.getWidth(), 1 }), 0) << scale;
    }
}

TEST (IconTest, AllStrokesOfASizeHaveTheSameWeight)
{
    // The stem of the arrow, the left side of the window, and the bar of the ruler.
    const auto widthOfFirstRun = [] (const juce::Image& image, int row)
    {
        int x = 0, width = 0;

        while (x < image.getWidth() && image.getPixelAt (x, row).getAlpha() < 128)
            ++x;

        while (x + width < image.getWidth() && image.getPixelAt (x + width, row).getAlpha() >= 128)
            ++width;

        return width;
    };

    for (const auto size : { 16, 24, 32, 48 })
    {
        const auto weight = std::max (1, juce::roundToInt (float (size) / 12.0f));
        EXPECT_EQ (widthOfFirstRun (drawn (Icon::exportPicture, size), size * 11 / 24), weight) << size;
        EXPECT_EQ (widthOfFirstRun (drawn (Icon::viewStandard, size), size / 2), weight) << size;
        EXPECT_EQ (widthOfFirstRun (drawn (Icon::document, size), size * 16 / 24), weight) << size;
    }
}

TEST (IconTest, SymmetricalIconsStaySymmetricalAtEverySize)
{
    for (const auto icon : { Icon::freeze, Icon::about, Icon::viewFull, Icon::autoPause, Icon::keyboard, Icon::close })
    {
        for (const auto size : sizes)
        {
            const auto image = drawn (icon, size);
            const auto ink = findInk (image);

            for (int y = ink.getY(); y < ink.getBottom(); ++y)
                for (int i = 0; i < ink.getWidth(); ++i)
                    ASSERT_NEAR (int (image.getPixelAt (ink.getX() + i, y).getAlpha()),
                                 int (image.getPixelAt (ink.getRight() - 1 - i, y).getAlpha()),
                                 48) // round corners are smoothed
                        << int (icon) << " at " << size << ": " << i << ", " << y;
        }
    }
}

TEST (IconTest, OverlappingMarksDoNotCutHoles)
{
    // The place where the black keys of the keyboard overlap its upper frame.
    const auto image = drawn (Icon::keyboard, 48);

    for (int y = 8; y < 24; ++y)
        EXPECT_EQ (image.getPixelAt (18, y).getAlpha(), 255) << y;
}

TEST (IconTest, AnEmptyAreaDrawsNothing)
{
    const auto image = drawnImage (10,
                                   10,
                                   [] (juce::Graphics& g) {
                                       drawIcon (g, Icon::tick, { 5.0f, 5.0f, 0.0f, 4.0f }, juce::Colours::white);
                                   });
    EXPECT_TRUE (findInk (image).isEmpty());
}

TEST (IconTest, AButtonsIconIsSharpWhereverTheButtonLies)
{
    for (const auto scale : { 1.0f, 1.5f, 2.0f })
    {
        orlo::test::StyledWindow<LookAndFeel> window (300, 300);
        juce::DrawableButton button ("button", juce::DrawableButton::ImageFitted);
        setIcon (button, Icon::viewFull);
        button.setEdgeIndent (3);
        window.add (button, { 37, 51, 47, 53 });

        auto image = snapshotOf (window.window, scale);
        const auto ink = findInk (image, (button.getBounds().toFloat() * scale).toNearestInt());
        ASSERT_GT (ink.getHeight(), 30);

        // A row through the upright ends of the upper corners.
        const auto row = ink.getY() + juce::roundToInt (float (ink.getHeight()) * 0.2f);
        EXPECT_EQ (countPartlyCovered (image, { ink.getX(), row, ink.getWidth(), 1 }), 0) << scale;
    }
}

TEST (IconTest, AButtonShowsItsOtherIconWhileItIsOn)
{
    juce::DrawableButton button ("view", juce::DrawableButton::ImageFitted);
    setIcon (button, Icon::viewFull, Icon::viewStandard);

    const auto shown = [&button]
    {
        const auto* image = dynamic_cast<const IconDrawable*> (button.getCurrentImage());
        return image != nullptr ? std::optional (image->getIcon()) : std::nullopt;
    };

    EXPECT_EQ (shown(), Icon::viewFull);
    button.setToggleState (true, juce::dontSendNotification);
    EXPECT_EQ (shown(), Icon::viewStandard);
}

TEST (IconTest, AnIconsColourCanBeReplaced)
{
    IconDrawable icon (Icon::tick, juce::Colours::white);
    EXPECT_FALSE (icon.replaceColour (juce::Colours::red, juce::Colours::blue));
    EXPECT_TRUE (icon.replaceColour (juce::Colours::white, juce::Colours::blue));
    EXPECT_EQ (icon.getColour(), juce::Colours::blue);
    EXPECT_EQ (dynamic_cast<const IconDrawable&> (*icon.createCopy()).getColour(), juce::Colours::blue);
}
} // namespace
} // namespace mk::pluginCore
