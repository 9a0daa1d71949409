// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/KeyboardScaleComponent.h"

#include "orlo/style/OrloColours.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Mouse.h"
#include "tests/support/Painting.h"
#include "tests/support/TestEditor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

const juce::Colour black { 0xff101010 };
const juce::Colour white { 0xffbbbbbb };

/** An octave from A to A, a semitone every 100 pixels, black keys 30 of 50 pixels wide. */
struct EvenOctave
{
    EvenOctave()
    {
        scale.setRange (440.0f, 880.0f);
        scale.setScaleType (FrequencyScale::log);
        editor.addAndMakeVisible (keyboard);
        keyboard.setSize (50, 1200);
        pumpPending();
    }

    FrequencyScale scale;
    TestEditor editor { 1818, 1200 };
    KeyboardScaleComponent keyboard { scale };
};

TEST (KeyboardScaleComponent, IsOpaqueAndNamed)
{
    FrequencyScale scale;
    const KeyboardScaleComponent keyboard { scale };
    EXPECT_TRUE (keyboard.isOpaque());
    EXPECT_EQ (keyboard.getTitle(), "Piano keyboard");
    EXPECT_EQ (keyboard.getHighlightedNote(), KeyboardScaleComponent::noNote);
}

TEST (KeyboardScaleComponent, PaintsWhiteAndBlackKeysWithTheirLines)
{
    EvenOctave test;
    const auto image = paintComponent (test.keyboard);

    EXPECT_EQ (image.getPixelAt (10, 700), white) << "D";
    EXPECT_EQ (image.getPixelAt (45, 700), white) << "D";
    EXPECT_EQ (image.getPixelAt (10, 800), black) << "C#";
    EXPECT_EQ (image.getPixelAt (29, 750), black) << "C#, first row";
    EXPECT_EQ (image.getPixelAt (29, 849), black) << "C#, last row";
    EXPECT_EQ (image.getPixelAt (29, 749), white);
    EXPECT_EQ (image.getPixelAt (29, 850), white);

    for (const auto x : { 30, 45, 49 })
    {
        EXPECT_EQ (image.getPixelAt (x, 798), white) << "D beside C#";
        EXPECT_EQ (image.getPixelAt (x, 799), black) << "the line behind C#";
        EXPECT_EQ (image.getPixelAt (x, 800), white) << "C beside C#";
    }

    for (const auto x : { 5, 49 })
    {
        EXPECT_EQ (image.getPixelAt (x, 949), black) << "the bottom line of C";
        EXPECT_EQ (image.getPixelAt (x, 950), white) << "B";
        EXPECT_EQ (image.getPixelAt (x, 449), black) << "the bottom line of F";
    }
}

TEST (KeyboardScaleComponent, LeavesTheStripEmptyBeyondItsKeys)
{
    EvenOctave test;
    test.keyboard.setColour (colourId::keyboardBackground, juce::Colours::darkblue);
    test.scale.setRange (0.0f, 12000.0f);
    test.scale.setScaleType (FrequencyScale::linear);
    test.scale.notifyListenersNow();

    const auto image = paintComponent (test.keyboard);
    EXPECT_EQ (image.getPixelAt (10, 1199), juce::Colours::darkblue);
    EXPECT_EQ (image.getPixelAt (10, 300), juce::Colours::darkblue);
    EXPECT_EQ (image.getPixelAt (45, 400), white);

    test.scale.setRange (440.0f, 440.0f);
    test.scale.notifyListenersNow();
    EXPECT_EQ (paintComponent (test.keyboard).getPixelAt (25, 600), juce::Colours::darkblue);
}

TEST (KeyboardScaleComponent, ShowsNoGapBetweenKeysAtAnySizeAndScale)
{
    FrequencyScale scale;
    KeyboardScaleComponent keyboard { scale };
    keyboard.setColour (colourId::keyboardBackground, juce::Colours::red);

    for (const auto& [width, height] : { std::pair { 30, 100 }, { 30, 352 }, { 50, 1000 }, { 106, 2112 }, { 7, 333 } })
        for (int type = 0; type < FrequencyScale::numTypes; ++type)
            for (const auto& [min, max] : { std::pair { 100.0f, 8000.0f }, { 200.0f, 900.0f }, { 440.0f, 500.0f } })
            {
                scale.setRange (min, max);
                scale.setScaleType (type);
                scale.notifyListenersNow();
                keyboard.setSize (width, height);
                const auto image = paintComponent (keyboard);

                for (int y = 0; y < height; ++y)
                    for (int x = 0; x < width; ++x)
                        ASSERT_NE (image.getPixelAt (x, y), juce::Colours::red)
                            << x << " " << y << " of " << width << " x " << height << " type " << type;
            }
}

TEST (KeyboardScaleComponent, HasSharpEdgesAndEqualLinesAtAnyPixelScale)
{
    FrequencyScale scale;
    scale.setRange (200.0f, 900.0f);
    scale.setScaleType (FrequencyScale::mel);
    KeyboardScaleComponent keyboard { scale };
    keyboard.setSize (50, 701);

    for (const auto& [pixelScale, thickness] :
         { std::pair { 1.0f, 1 }, { 1.25f, 1 }, { 1.5f, 1 }, { 1.75f, 1 }, { 2.0f, 2 }, { 3.0f, 3 } })
    {
        SCOPED_TRACE (pixelScale);
        const auto image = paintComponent (keyboard, pixelScale);

        for (int y = 0; y < image.getHeight(); ++y)
            for (const auto x : { image.getWidth() / 2, image.getWidth() - 3 })
            {
                const auto pixel = image.getPixelAt (x, y);
                ASSERT_TRUE (pixel == black || pixel == white) << x << " " << y << " " << pixel.toString();
            }

        // Right of the black keys only the lines are dark.
        const auto lines = findBandsOfRows (image, white, { image.getWidth() - 3, image.getWidth() - 2 });
        EXPECT_GT (lines.size(), 10u);

        for (const auto& line : lines)
            EXPECT_EQ (line.getLength(), thickness);
    }
}

TEST (KeyboardScaleComponent, LightsUpTheWholeWhiteKey)
{
    EvenOctave test;
    test.keyboard.setHighlightedNote (74);
    const auto image = paintComponent (test.keyboard);
    EXPECT_EQ (image.getPixelAt (10, 700), juce::Colours::white);
    EXPECT_EQ (image.getPixelAt (45, 790), juce::Colours::white);
    EXPECT_EQ (image.getPixelAt (45, 810), white) << "C is unchanged";
    EXPECT_EQ (image.getPixelAt (10, 800), black) << "C# is unchanged";

    test.keyboard.setHighlightedNote (KeyboardScaleComponent::noNote);
    EXPECT_EQ (paintComponent (test.keyboard).getPixelAt (10, 700), white);
}

TEST (KeyboardScaleComponent, LightsUpABlackKeyInsideItsEdge)
{
    EvenOctave test;
    test.keyboard.setHighlightedNote (73);
    const auto image = paintComponent (test.keyboard);
    EXPECT_EQ (image.getPixelAt (10, 800), juce::Colours::white);
    EXPECT_EQ (image.getPixelAt (10, 750), black);
    EXPECT_EQ (image.getPixelAt (10, 849), black);
    EXPECT_EQ (image.getPixelAt (28, 800), juce::Colours::white);
    EXPECT_EQ (image.getPixelAt (29, 800), black);
}

TEST (KeyboardScaleComponent, WritesTheNameOfCInsideItsKey)
{
    EvenOctave test;
    EXPECT_FLOAT_EQ (test.keyboard.getFont().getHeight(), 20.0f);

    const auto image = paintUnclipped (test.keyboard, 10);
    const auto bands = findBandsOfRows (image.getClippedImage ({ 10, 10 + 851, 50, 97 }), white, { 0, 30 });
    ASSERT_EQ (bands.size(), 1u) << "one line of text in the C key";
    EXPECT_NEAR (double (bands[0].getStart() + bands[0].getEnd()) * 0.5, 49.0, 3.0);

    // Other keys have no text, so a white key is plain beside the black ones.
    EXPECT_TRUE (findBandsOfRows (image.getClippedImage ({ 10, 10 + 655, 50, 90 }), white, { 0, 50 }).empty()) << "D";
}

TEST (KeyboardScaleComponent, LeavesOutNamesThatDoNotFit)
{
    EvenOctave test;
    test.keyboard.setSize (50, 12 * 17);
    const auto c = std::find_if (test.keyboard.getKeys().begin(),
                                 test.keyboard.getKeys().end(),
                                 [] (const KeyboardKey& key) { return key.hasLabel; });
    ASSERT_NE (c, test.keyboard.getKeys().end());
    ASSERT_FALSE (isLabelShown (*c, test.keyboard.getFont().getHeight()));

    const auto image = paintComponent (test.keyboard);
    const auto inner = c->body.withTrimmedBottom (2).withTrimmedTop (1);
    EXPECT_TRUE (findBandsOfRows (image.getClippedImage (inner), white, { 0, 50 }).empty());
}

//==============================================================================
TEST (KeyboardScaleComponent, ReportsWhichKeyTheMouseIsOn)
{
    EvenOctave test;
    std::vector<int> hovered;
    test.keyboard.onKeyHovered = [&hovered] (const KeyboardKey& key) { hovered.push_back (key.noteNumber); };

    for (const auto y : { 1199.0f, 1100.0f, 1000.0f, 10.0f })
        test.keyboard.mouseMove (makeMouseEvent (test.keyboard, { 45.0f, y }));

    EXPECT_EQ (hovered, (std::vector<int> { 69, 70, 71, 81 }));
}

TEST (KeyboardScaleComponent, ReportsNothingWithoutAKeyOrACallback)
{
    EvenOctave test;
    test.keyboard.mouseMove (makeMouseEvent (test.keyboard, { 10.0f, 600.0f }));

    auto calls = 0;
    test.keyboard.onKeyHovered = [&calls] (const KeyboardKey&) { ++calls; };
    test.scale.setRange (0.0f, 20000.0f);
    test.scale.setScaleType (FrequencyScale::linear);
    test.scale.notifyListenersNow();
    test.keyboard.mouseMove (makeMouseEvent (test.keyboard, { 10.0f, 100.0f }));
    test.keyboard.mouseMove (makeMouseEvent (test.keyboard, { 10.0f, 1199.5f }));
    EXPECT_EQ (calls, 0);

    test.keyboard.mouseMove (makeMouseEvent (test.keyboard, { 10.0f, 1150.0f }));
    EXPECT_EQ (calls, 1);
}

TEST (KeyboardScaleComponent, RebuildsForEachChangeOfTheScale)
{
    EvenOctave test;
    const auto before = test.keyboard.getKeys();
    test.scale.setScaleType (FrequencyScale::linear);
    pumpPending();
    const auto linear = test.keyboard.getKeys();
    ASSERT_EQ (linear.size(), before.size());
    EXPECT_NE (linear[5].body, before[5].body);

    test.scale.setRange (100.0f, 400.0f);
    pumpPending();
    EXPECT_EQ (test.keyboard.getKeys().front().noteNumber, 43);
}

TEST (KeyboardScaleComponent, SurvivesACallbackThatChangesTheScale)
{
    EvenOctave test;
    juce::String label;

    test.keyboard.onKeyHovered = [&] (const KeyboardKey& key)
    {
        test.scale.setRange (100.0f, 110.0f);
        test.scale.notifyListenersNow();
        label = key.label;
    };

    test.keyboard.mouseMove (makeMouseEvent (test.keyboard, { 10.0f, 900.0f }));
    EXPECT_EQ (label, "C4");
}

} // namespace
} // namespace mk::orlo::test
