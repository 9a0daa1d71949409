// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/FreqReadoutPopup.h"
#include "orlo/display/FreqScaleComponent.h"
#include "orlo/display/KeyboardScaleComponent.h"

#include "tests/support/Window.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

template <typename Base>
struct Counting final : Base
{
    using Base::Base;

    void paint (juce::Graphics& g) override
    {
        ++numPaints;
        Base::paint (g);
    }

    int numPaints = 0;
};

struct Picture : juce::Component
{
    Picture() { setOpaque (true); }
    void paint (juce::Graphics& g) override { g.fillAll (juce::Colours::black); }
};

/** Picture, keyboard, ruler and readout in a real window, laid out as in the product. */
class StripsInWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

        scale.setRange (100.0f, 1000.0f);
        window = std::make_unique<Window> (600, 400);
        window->addAndMakeVisible (picture);
        window->addAndMakeVisible (keyboard);
        window->addAndMakeVisible (ruler);
        window->addChildComponent (readout);
        picture.setBounds (0, 0, 500, 400);
        keyboard.setBounds (500, 0, 50, 400);
        ruler.setBounds (550, 0, 50, 400);

        ASSERT_TRUE (
            pumpUntil ([this] { return picture.numPaints > 0 && keyboard.numPaints > 0 && ruler.numPaints > 0; }));

        // A window is painted several times as it opens, so wait until only the picture is painted.
        ASSERT_TRUE (pumpUntil (
            [this]
            {
                pumpPending();
                const auto before = ruler.numPaints + keyboard.numPaints;
                return repaintPicture (3) && ruler.numPaints + keyboard.numPaints == before;
            }));
    }

    void TearDown() override { window = nullptr; }

    /** Repaints the picture the given number of times and waits for each paint. */
    [[nodiscard]] bool repaintPicture (int times)
    {
        for (int i = 0; i < times; ++i)
        {
            const auto before = picture.numPaints;
            picture.repaint();

            if (! pumpUntil ([this, before] { return picture.numPaints > before; }))
                return false;
        }

        return true;
    }

    /** Repeats an observation up to five times, since the window system may repaint the whole window at any
        moment. Returns whether it succeeded at least once. */
    template <typename Observation>
    [[nodiscard]] static bool undisturbed (const Observation& observation)
    {
        for (int tries = 0; tries < 5; ++tries)
            if (observation())
                return true;

        return false;
    }

    Counting<Picture> picture;
    FrequencyScale scale;
    Counting<KeyboardScaleComponent> keyboard { scale };
    Counting<FreqScaleComponent> ruler { scale };
    FreqReadoutPopup readout;
    std::unique_ptr<Window> window; // destroyed before its children
};

TEST_F (StripsInWindow, AreNotRepaintedWhileOnlyThePictureMoves)
{
    EXPECT_TRUE (undisturbed (
        [&]
        {
            const auto keyboardBefore = keyboard.numPaints;
            const auto rulerBefore = ruler.numPaints;
            return repaintPicture (20) && keyboard.numPaints == keyboardBefore && ruler.numPaints == rulerBefore;
        }));
}

TEST_F (StripsInWindow, ArePaintedOnceAfterTheScaleHasChanged)
{
    auto range = 200.0f;

    EXPECT_TRUE (undisturbed (
        [&]
        {
            const auto keyboardBefore = keyboard.numPaints;
            const auto rulerBefore = ruler.numPaints;
            range += 100.0f;
            scale.setRange (range, range * 10.0f);
            scale.setScaleType (int (range) / 100 % FrequencyScale::numTypes);

            return pumpUntil ([&] { return keyboard.numPaints > keyboardBefore && ruler.numPaints > rulerBefore; })
                   && repaintPicture (3) && keyboard.numPaints == keyboardBefore + 1
                   && ruler.numPaints == rulerBefore + 1;
        }));
}

TEST_F (StripsInWindow, AHighlightRepaintsOnlyTheKeyboard)
{
    auto note = 60;

    EXPECT_TRUE (undisturbed (
        [&]
        {
            const auto rulerBefore = ruler.numPaints;
            const auto keyboardBefore = keyboard.numPaints;
            keyboard.setHighlightedNote (++note);

            return pumpUntil ([&] { return keyboard.numPaints > keyboardBefore; }) && repaintPicture (3)
                   && ruler.numPaints == rulerBefore;
        }));

    EXPECT_TRUE (undisturbed (
        [&]
        {
            const auto withHighlight = keyboard.numPaints;
            keyboard.setHighlightedNote (note);
            return repaintPicture (3) && keyboard.numPaints == withHighlight;
        }))
        << "setting the same note again repaints nothing";
}

TEST_F (StripsInWindow, TheRealMouseOnTheKeyboardNamesTheKey)
{
    auto hovered = KeyboardScaleComponent::noNote;
    keyboard.onKeyHovered = [&hovered] (const KeyboardKey& key) { hovered = key.noteNumber; };

    const auto& key = keyboard.getKeys()[keyboard.getKeys().size() / 2];
    ASSERT_TRUE (window->moveMouseTo (picture, { 10.0f, 10.0f }));
    ASSERT_TRUE (window->moveMouseTo (keyboard, key.body.getCentre().toFloat()));
    EXPECT_TRUE (pumpUntil ([&] { return hovered == key.noteNumber; })) << hovered;
}

TEST_F (StripsInWindow, TheReadoutLetsTheMouseThrough)
{
    readout.setBounds (100, 100, 200, 40);
    readout.setVisible (true);
    EXPECT_TRUE (window->moveMouseTo (picture, { 150.0f, 120.0f }));
}

} // namespace
} // namespace mk::orlo::test
