// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ColourMapPreviewComponent.h"
#include "orlo/analysis/ColourMap.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/style/OrloColours.h"
#include "tests/support/Mouse.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{

class ColourMapPreviewTest : public ::testing::Test
{
protected:
    void show (ColourMapPreviewComponent& preview, int width, int height)
    {
        window.add (preview, { 0, 0, width, height });
    }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
};

TEST_F (ColourMapPreviewTest, WithoutANameTheGradientTakesAllButHalfAPixel)
{
    ColourMapPreviewComponent preview (5, false);
    show (preview, 334, 44);
    EXPECT_EQ (preview.getGradientArea(), juce::Rectangle<float> (0.5f, 0.5f, 333.0f, 43.0f));
    EXPECT_EQ (preview.getNumChildComponents(), 0);
    EXPECT_EQ (preview.getLabel().getText(), "magma");
}

TEST_F (ColourMapPreviewTest, ANameTakesTheRightPartOfTheWidth)
{
    ColourMapPreviewComponent preview (45, true);
    show (preview, 350, 50);
    EXPECT_EQ (preview.getLabel().getText(), "voltage");
    EXPECT_EQ (preview.getLabel().getRight(), 350);
    EXPECT_EQ (preview.getLabel().getWidth(), juce::roundToInt (350 * 0.45f));
    EXPECT_EQ (preview.getGradientArea(), juce::Rectangle<float> (0.0f, 0.0f, 350.0f - 158.0f, 50.0f));
}

TEST_F (ColourMapPreviewTest, TheGradientRunsFromLevelZeroAtTheLeftToOneAtTheRight)
{
    for (int i = 0; i < ColourMapPreviewComponent::getNumMaps(); ++i)
    {
        ColourMapPreviewComponent preview (i, false);
        show (preview, 513, 20);
        const auto image = test::snapshotOf (preview);
        const ColourMap map { unsigned (i) };

        for (const auto x : { 20, 128, 256, 384, 492 })
        {
            const auto level = (float (x) + 0.5f - 0.5f) / 512.0f;
            const auto expected = map.getColours()[ColourMap::entryForLevel (level)];
            EXPECT_LE (test::distance (image.getPixelAt (x, 10), expected), 8) << preview.getTitle() << " at " << x;
        }
    }
}

TEST_F (ColourMapPreviewTest, TheGradientOfATenPointMapHasTheValuesOfItsTable)
{
    const ColourMapPreviewComponent preview (1, false);
    const auto table = ColourMap::getColourList (1);
    ASSERT_EQ (table.size(), 10);

    for (int i = 0; i < 10; ++i)
        EXPECT_EQ (preview.getGradientFill().gradient->getColourAtPosition (double (i) / 9.0), table[i]) << i;
}

TEST_F (ColourMapPreviewTest, AnotherMapChangesTheNameAndTheColours)
{
    ColourMapPreviewComponent preview (0, false);
    show (preview, 100, 20);
    preview.setMapIndex (10);
    EXPECT_EQ (preview.getMapIndex(), 10);
    EXPECT_EQ (preview.getLabel().getText(), "amber");
    EXPECT_EQ (preview.getTitle(), "amber");
    EXPECT_EQ (preview.getGradientFill().gradient->getColourAtPosition (1.0), ColourMap::getColourList (10).getLast());
    EXPECT_FLOAT_EQ (preview.getGradientFill().gradient->point2.x, 99.5f);

    for (const auto index : { -1, 46, 127 })
    {
        preview.setMapIndex (index);
        EXPECT_EQ (preview.getMapIndex(), 0);
    }
}

TEST_F (ColourMapPreviewTest, TheBackgroundShowsBesideTheGradient)
{
    ColourMapPreviewComponent preview (0, true);
    show (preview, 350, 50);
    const auto image = test::snapshotOf (preview);
    EXPECT_EQ (image.getPixelAt (340, 3), window.style.findColour (juce::PopupMenu::backgroundColourId));
    EXPECT_EQ (window.style.findColour (colourId::controlBackground), juce::Colour (0xFF232323));
}

TEST_F (ColourMapPreviewTest, ItsCornersGrowWithTheEditor)
{
    // Returns the distance from the corner at which the second row begins to be painted.
    const auto cornerAt = [this] (int editorWidth)
    {
        window.window.setSize (editorWidth, editorWidth * 1000 / 1818);
        ColourMapPreviewComponent preview (0, false);
        show (preview, 200, 44);
        const auto image = test::snapshotOf (preview);
        int x = 0;

        while (x < 100 && image.getPixelAt (x, 1).getAlpha() < 128)
            ++x;

        return x;
    };

    // In that row a circle of radius r starts at r - sqrt (2 r - 1).
    EXPECT_NEAR (cornerAt (909), 5.0 - 3.0, 1.0);
    EXPECT_NEAR (cornerAt (1818), 10.0 - 4.36, 1.0);
    EXPECT_NEAR (cornerAt (3636), 20.0 - 6.24, 1.0);

    ColourMapPreviewComponent alone (0, false);
    alone.setLookAndFeel (&window.style);
    alone.setSize (200, 44);
    const auto image = test::snapshotOf (alone);
    EXPECT_LT (image.getPixelAt (4, 1).getAlpha(), 128);
    EXPECT_GT (image.getPixelAt (7, 1).getAlpha(), 128);
    alone.setLookAndFeel (nullptr);
}

TEST_F (ColourMapPreviewTest, ItPaintsNothingAtSizeZero)
{
    ColourMapPreviewComponent preview (0, true);
    show (preview, 0, 0);
    const auto image = test::drawnImage (10, 10, [&preview] (juce::Graphics& g) { preview.paint (g); });
    EXPECT_TRUE (test::findInk (image).isEmpty());
}

TEST_F (ColourMapPreviewTest, OnlyALeftPressClicks)
{
    ColourMapPreviewComponent preview (0, false);
    preview.mouseDown (test::makeMouseEvent (preview, {}, juce::ModifierKeys::leftButtonModifier));
    auto numClicks = 0;
    preview.onClick = [&numClicks] { ++numClicks; };
    preview.mouseDown (test::makeMouseEvent (preview, {}, juce::ModifierKeys::rightButtonModifier));
    preview.mouseDown (test::makeMouseEvent (preview, {}, juce::ModifierKeys::middleButtonModifier));
    EXPECT_EQ (numClicks, 0);
    preview.mouseDown (test::makeMouseEvent (preview, {}, juce::ModifierKeys::leftButtonModifier));
    EXPECT_EQ (numClicks, 1);
}

} // namespace
} // namespace mk::orlo
