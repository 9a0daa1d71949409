// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/KeyboardKeys.h"

#include "orlo/display/NoteNames.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{

constexpr int stripWidth = 50;
constexpr int blackWidth = 30;

struct Keyboard
{
    Keyboard (float minHz, float maxHz, int type, int height, int width = stripWidth)
    {
        scale.setRange (minHz, maxHz);
        scale.setScaleType (type);
        keys = buildKeyboardKeys (scale, width, height, {});
    }

    [[nodiscard]] const KeyboardKey* find (int note) const
    {
        for (const auto& key : keys)
            if (key.noteNumber == note)
                return &key;

        return nullptr;
    }

    FrequencyScale scale;
    std::vector<KeyboardKey> keys;
};

/** An octave from A to A, a semitone every 100 pixels. */
[[nodiscard]] Keyboard makeEvenOctave() { return { 440.0f, 880.0f, FrequencyScale::log, 1200 }; }

//==============================================================================
TEST (KeyboardKeys, CoverSevenOctavesFromCToCOnTheWholeRange)
{
    for (int type = 0; type < FrequencyScale::numTypes; ++type)
    {
        const Keyboard keyboard { 0.0f, 22050.0f, type, 1000 };
        ASSERT_EQ (keyboard.keys.size(), 85u);
        EXPECT_EQ (keyboard.keys.front().noteNumber, 36);
        EXPECT_EQ (keyboard.keys.back().noteNumber, 120);

        for (size_t i = 1; i < keyboard.keys.size(); ++i)
        {
            EXPECT_EQ (keyboard.keys[i].noteNumber, keyboard.keys[i - 1].noteNumber + 1);
            EXPECT_NEAR (keyboard.keys[i].lowFrequency / keyboard.keys[i - 1].highFrequency, 1.0f, 1.0e-6f);
        }
    }
}

TEST (KeyboardKeys, SpanOneSemitoneEach)
{
    const Keyboard keyboard { 0.0f, 22050.0f, FrequencyScale::log, 1000 };
    ASSERT_EQ (keyboard.keys.size(), 85u);

    for (const auto& key : keyboard.keys)
    {
        EXPECT_NEAR (key.highFrequency / key.lowFrequency, std::exp2 (1.0f / 12.0f), 1.0e-5f);
        EXPECT_NEAR (notes::noteForFrequency (double (key.lowFrequency), 440.0), double (key.noteNumber) - 0.5, 1.0e-4);
        EXPECT_EQ (key.isBlack, notes::isBlackKey (key.noteNumber));
    }
}

TEST (KeyboardKeys, DoNotExistForAnEmptyRange)
{
    EXPECT_TRUE (Keyboard (440.0f, 440.0f, FrequencyScale::log, 1000).keys.empty());
    EXPECT_TRUE (Keyboard (0.0f, 0.0f, FrequencyScale::linear, 1000).keys.empty());
}

TEST (KeyboardKeys, DoNotExistOutsideTheirSevenOctaves)
{
    EXPECT_TRUE (Keyboard (0.0f, 60.0f, FrequencyScale::linear, 1000).keys.empty());
    EXPECT_TRUE (Keyboard (9000.0f, 22050.0f, FrequencyScale::linear, 1000).keys.empty());

    // The lowest key begins at 63.6 Hz and the highest ends at 8616 Hz; beyond, the strip stays empty.
    const Keyboard keyboard { 0.0f, 10000.0f, FrequencyScale::linear, 10000 };
    EXPECT_EQ (keyboard.keys.front().body.getBottom(), 10000 - 64);
    EXPECT_NEAR (double (keyboard.keys.back().body.getY()), 10000.0 - 8616.0, 2.0);
}

TEST (KeyboardKeys, AreClippedToTheRange)
{
    const Keyboard keyboard { 100.0f, 1000.0f, FrequencyScale::log, 1000 };
    const auto& lowest = keyboard.keys.front();
    EXPECT_EQ (lowest.noteNumber, 43);
    EXPECT_EQ (lowest.lowFrequency, 100.0f);
    EXPECT_LT (lowest.body.getHeight(), keyboard.keys[1].body.getHeight() - 5);
    EXPECT_EQ (lowest.body.getBottom(), 1000);

    const auto& highest = keyboard.keys.back();
    EXPECT_EQ (highest.highFrequency, 1000.0f);
    EXPECT_EQ (highest.body.getY(), 0);
}

TEST (KeyboardKeys, AreEvenOnALogScale)
{
    const auto keyboard = makeEvenOctave();
    ASSERT_EQ (keyboard.keys.size(), 13u);
    EXPECT_EQ (keyboard.keys.front().body, (juce::Rectangle { 0, 1150, stripWidth, 50 }));
    EXPECT_EQ (keyboard.keys.back().body, (juce::Rectangle { 0, 0, stripWidth, 50 }));

    for (size_t i = 1; i < 12; ++i)
    {
        EXPECT_EQ (keyboard.keys[i].body.getY(), 1150 - 100 * int (i));
        EXPECT_EQ (keyboard.keys[i].body.getHeight(), 100);
        EXPECT_EQ (keyboard.keys[i].body.getWidth(), keyboard.keys[i].isBlack ? blackWidth : stripWidth);
    }
}

TEST (KeyboardKeys, WhiteKeysReachToTheMiddleOfTheirBlackNeighbours)
{
    const auto keyboard = makeEvenOctave();

    // B has a black key below and a white one above, C the reverse, and D has black keys on both sides.
    const auto b = keyboard.find (71)->shape.getBounds();
    const auto c = keyboard.find (72)->shape.getBounds();
    const auto d = keyboard.find (74)->shape.getBounds();

    EXPECT_EQ (b, (juce::Rectangle { 0, 950, stripWidth, 149 }));
    EXPECT_EQ (c, (juce::Rectangle { 0, 799, stripWidth, 151 }));
    EXPECT_EQ (d, (juce::Rectangle { 0, 599, stripWidth, 200 }));

    // The white key does not overlap the black one.
    const auto& shape = keyboard.find (74)->shape;
    EXPECT_TRUE (shape.containsRectangle ({ 0, 650, stripWidth, 100 }));
    EXPECT_TRUE (shape.containsRectangle ({ blackWidth, 599, stripWidth - blackWidth, 200 }));
    EXPECT_FALSE (shape.containsPoint (blackWidth - 1, 649));
    EXPECT_FALSE (shape.containsPoint (blackWidth - 1, 750));
}

TEST (KeyboardKeys, TailsAreClippedToTheRangeToo)
{
    const auto keyboard = makeEvenOctave();

    // The lowest A has no G# in range below it, only the rest of its own semitone.
    EXPECT_EQ (keyboard.find (69)->shape.getBounds(), (juce::Rectangle { 0, 1099, stripWidth, 101 }));

    for (int type = 0; type < FrequencyScale::numTypes; ++type)
        for (const auto min : { 0.0f, 100.0f, 110.3f, 233.0f })
        {
            const Keyboard cut { min, min + 900.0f, type, 700 };

            for (const auto& key : cut.keys)
            {
                EXPECT_GE (key.shape.getBounds().getY(), -1);
                EXPECT_LE (key.shape.getBounds().getBottom(), 700);
            }
        }
}

TEST (KeyboardKeys, AreAtLeastAPixelHigh)
{
    for (const auto height : { 1, 2, 20, 100, 300 })
        for (int type = 0; type < FrequencyScale::numTypes; ++type)
        {
            const Keyboard keyboard { 0.0f, 22050.0f, type, height };
            ASSERT_EQ (keyboard.keys.size(), 85u);

            for (const auto& key : keyboard.keys)
            {
                EXPECT_GE (key.body.getHeight(), 1);
                EXPECT_FALSE (key.shape.isEmpty());
            }
        }
}

TEST (KeyboardKeys, BlackKeysTakeSixTenthsOfTheStrip)
{
    EXPECT_EQ (getBlackKeyWidth (50), 30);
    EXPECT_EQ (getBlackKeyWidth (49), 29);
    EXPECT_EQ (getBlackKeyWidth (1), 1);
    EXPECT_EQ (getBlackKeyWidth (0), 1);
}

//==============================================================================
TEST (KeyboardKeys, AreSeparatedWhereTwoWhiteKeysMeet)
{
    const auto keyboard = makeEvenOctave();
    EXPECT_EQ (getKeySeparator (*keyboard.find (72), stripWidth), (juce::Rectangle { 0, 949, 50, 1 })) << "C";
    EXPECT_EQ (getKeySeparator (*keyboard.find (77), stripWidth), (juce::Rectangle { 0, 449, 50, 1 })) << "F";
    EXPECT_TRUE (getKeySeparator (*keyboard.find (74), stripWidth).isEmpty()) << "D";
    EXPECT_TRUE (getKeySeparator (*keyboard.find (71), stripWidth).isEmpty()) << "B";
    EXPECT_EQ (getKeySeparator (*keyboard.find (73), stripWidth), (juce::Rectangle { 30, 799, 20, 1 })) << "C#";
}

TEST (KeyboardKeys, LoseTheirSeparatorsBelowFourPixels)
{
    auto key = *makeEvenOctave().find (72);
    key.body.setHeight (4);
    EXPECT_FALSE (getKeySeparator (key, stripWidth).isEmpty());
    key.body.setHeight (3);
    EXPECT_TRUE (getKeySeparator (key, stripWidth).isEmpty());

    auto black = *makeEvenOctave().find (73);
    black.body.setHeight (4);
    EXPECT_FALSE (getKeySeparator (black, stripWidth).isEmpty());
    black.body.setHeight (3);
    EXPECT_TRUE (getKeySeparator (black, stripWidth).isEmpty());
}

TEST (KeyboardKeys, ABlackKeyLightsUpInsideItsEdge)
{
    auto key = *makeEvenOctave().find (73);
    EXPECT_EQ (getBlackKeyHighlight (key, stripWidth), (juce::Rectangle { 0, 751, 29, 98 }));
    key.body.setHeight (1);
    EXPECT_TRUE (getBlackKeyHighlight (key, stripWidth).isEmpty());
}

TEST (KeyboardKeys, OnlyCsAreLabelledAndOnlyWhereTheTextFits)
{
    const auto keyboard = makeEvenOctave();

    for (const auto& key : keyboard.keys)
    {
        EXPECT_EQ (key.hasLabel, key.noteNumber == 72);
        EXPECT_EQ (key.label, key.noteNumber == 72 ? "C4" : "");
    }

    const auto& c = *keyboard.find (72);
    EXPECT_EQ (c.labelArea.getX(), 0);
    EXPECT_EQ (c.labelArea.getWidth(), stripWidth);
    EXPECT_NEAR (double (c.labelArea.getY()), 850.0, 1.0);
    EXPECT_NEAR (double (c.labelArea.getHeight()), 100.0, 2.0);
    EXPECT_TRUE (isLabelShown (c, 99.0f));
    EXPECT_TRUE (isLabelShown (c, float (c.labelArea.getHeight())));
    EXPECT_FALSE (isLabelShown (c, float (c.labelArea.getHeight()) + 0.5f));
    EXPECT_FALSE (isLabelShown (*keyboard.find (74), 10.0f));
}

TEST (KeyboardKeys, AreNamedByTheHostsMiddleC)
{
    FrequencyScale scale;
    scale.setRange (440.0f, 880.0f);

    for (const auto& [octave, name] : { std::pair { 3, "C4" }, { 4, "C5" } })
        for (const auto& key : buildKeyboardKeys (scale, stripWidth, 500, { octave }))
            EXPECT_TRUE (! key.hasLabel || key.label == name);
}

TEST (KeyboardKeys, LieWhereTheConcertPitchPutsThem)
{
    FrequencyScale scale;
    scale.setRange (300.0f, 600.0f);

    for (const auto pitch : { 415.0, 442.5 })
    {
        const auto keys = buildKeyboardKeys (scale, stripWidth, 500, { 3, pitch });
        const auto* const a = findKeyForFrequency (keys, float (pitch));
        ASSERT_NE (a, nullptr);
        EXPECT_EQ (a->noteNumber, 69);
        EXPECT_NEAR (std::sqrt (double (a->lowFrequency) * double (a->highFrequency)), pitch, 0.01);
    }
}

TEST (KeyboardKeys, TheLowerKeyIsFoundOnABoundary)
{
    const auto keyboard = makeEvenOctave();
    const auto& a = keyboard.keys[0];
    const auto& aSharp = keyboard.keys[1];

    EXPECT_EQ (findKeyForFrequency (keyboard.keys, a.highFrequency), &a);
    EXPECT_EQ (findKeyForFrequency (keyboard.keys, std::nextafter (a.highFrequency, 1000.0f)), &aSharp);
    EXPECT_EQ (findKeyForFrequency (keyboard.keys, 440.0f), &a);
    EXPECT_EQ (findKeyForFrequency (keyboard.keys, 439.0f), nullptr);
    EXPECT_EQ (findKeyForFrequency (keyboard.keys, 900.0f), nullptr);
    EXPECT_EQ (findKeyForFrequency ({}, 440.0f), nullptr);
}

} // namespace
} // namespace mk::orlo::test
