// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests what mouse, wheel and keys do to a frozen picture; needs a display.
#include "ExploreInWindow.h"

#include "tests/support/GestureRecorder.h"

namespace mk::orlo::test
{
namespace
{

class ExploreGesturesTest : public ExploreInWindowTest
{
protected:
    /** Freezes, with the mouse at a quarter of the picture. */
    void freezeUnderMouse()
    {
        freeze();
        ASSERT_TRUE (window->moveTo (getPicture(), { getPicture().getWidth() / 4, getPicture().getHeight() / 3 }));
    }

    /** Types a key, and waits until the range on view has changed. */
    [[nodiscard]] bool typeAndWait (unsigned long symbol)
    {
        const auto start = getTimes().getStart(), length = getTimes().getLength();
        window->typeKey (symbol);
        return pumpUntil (
            [&]
            {
                return ! juce::exactlyEqual (getTimes().getStart(), start)
                       || ! juce::exactlyEqual (getTimes().getLength(), length);
            });
    }
};

TEST_F (ExploreGesturesTest, TheWheelZoomsInTimeAboutTheCursor)
{
    freezeUnderMouse();
    turnWheel (wheelUp);
    ASSERT_TRUE (waitForExploring());

    const auto home = getTimes().getHomeLength();
    const auto zoomed = getTimes().getLength();
    EXPECT_LT (zoomed, home);
    const auto x = double (getPicture().getMouseXYRelative().x);
    const auto sample = getTimes().getSampleAt (x / getPicture().getWidth());
    EXPECT_NEAR ((sample - getTimes().getHomeStart()) / home, 0.25, 0.01);

    turnWheel (wheelUp);
    ASSERT_TRUE (pumpUntil ([&] { return getTimes().getLength() < zoomed; }));
    EXPECT_NEAR (getTimes().getSampleAt (x / getPicture().getWidth()), sample, 1.0);

    turnWheel (wheelDown);
    ASSERT_TRUE (pumpUntil ([&] { return getTimes().getLength() > zoomed * 0.99; }));
    EXPECT_NEAR (getTimes().getLength(), zoomed, 1.0);
    EXPECT_TRUE (waitForPicture());
}

TEST_F (ExploreGesturesTest, TheWheelDoesNothingToARunningPicture)
{
    ASSERT_TRUE (window->moveToCentre (getPicture()));
    const auto before = getParameters();
    sendWheel (0.0f, 0.5f, 0, false);
    sendWheel (0.0f, 0.5f, juce::ModifierKeys::commandModifier, false);
    sendPinch (1.5f);
    waitForTicks();
    EXPECT_FALSE (getExplorer().isExploring());
    EXPECT_EQ (getParameters(), before);
}

TEST_F (ExploreGesturesTest, ShiftWheelAndSidewaysWheelMoveInTime)
{
    freezeUnderMouse();
    turnWheel (wheelUp);
    ASSERT_TRUE (waitForExploring());
    const auto start = getTimes().getStart();
    const auto length = getTimes().getLength();

    ASSERT_TRUE (holdModifier (Screen::shiftKey, juce::ModifierKeys::shiftModifier));
    turnWheel (wheelUp);
    ASSERT_TRUE (pumpUntil ([&] { return getTimes().getStart() < start; }));
    turnWheel (wheelDown);
    ASSERT_TRUE (pumpUntil ([&] { return getTimes().getStart() > start - 1.0; }));
    window->releaseKey();
    ASSERT_TRUE (pumpUntil ([] { return ! juce::ModifierKeys::getCurrentModifiers().isShiftDown(); }));

    sendWheel (0.1f, 0.02f, 0, true);
    EXPECT_LT (getTimes().getStart(), start - 1.0);
    EXPECT_DOUBLE_EQ (getTimes().getLength(), length);
}

TEST_F (ExploreGesturesTest, CtrlWheelZoomsFrequencyInOneUndoStep)
{
    processor.applyInitialSettings();
    set (Params::id::minFreq, 5.0f);
    set (Params::id::maxFreq, 80.0f);
    pumpPending();
    processor.getUndoManager().clearUndoHistory();
    freezeUnderMouse();
    processor.getUndoManager().clearUndoHistory();

    GestureRecorder minimum (*processor.getParameterState().getParameter (Params::id::minFreq));
    GestureRecorder maximum (*processor.getParameterState().getParameter (Params::id::maxFreq));
    const auto y = float (getPicture().getMouseXYRelative().y);
    const auto hz = [&]
    {
        return window->getContainer().getFrequencyScale().frequencyForPosition (1.0f
                                                                                - y / float (getPicture().getHeight()));
    };

    ASSERT_TRUE (holdModifier (Screen::controlKey, juce::ModifierKeys::ctrlModifier));
    turnWheel (wheelUp);
    ASSERT_TRUE (waitForExploring());
    ASSERT_TRUE (pumpUntil ([&] { return get (Params::id::maxFreq) < 79.0f; }));
    const auto before = hz();
    const auto first = get (Params::id::maxFreq);
    turnWheel (wheelUp);
    ASSERT_TRUE (pumpUntil ([&] { return get (Params::id::maxFreq) < first; }));
    EXPECT_NEAR (hz(), before, before * 0.01f);
    EXPECT_GT (get (Params::id::minFreq), 5.0f);
    EXPECT_TRUE (getTimes().isHome());

    window->releaseKey();
    ASSERT_TRUE (pumpUntil ([this] { return ! getExploration().getFrequencyGesture().isGoingOn(); }));
    EXPECT_EQ (minimum.take(), "[..]");
    EXPECT_EQ (maximum.take(), "[..]");

    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (get (Params::id::minFreq), 5.0f, 1.0e-3f);
    EXPECT_NEAR (get (Params::id::maxFreq), 80.0f, 1.0e-3f);
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

TEST_F (ExploreGesturesTest, SmoothWheelsAndPinchesZoomFinely)
{
    freezeUnderMouse();
    sendWheel (0.0f, 0.01f, 0, true);
    ASSERT_TRUE (getExplorer().isExploring());
    const auto home = getTimes().getHomeLength();
    EXPECT_LT (getTimes().getLength(), home);
    EXPECT_GT (getTimes().getLength(), 0.95 * home);

    const auto before = getTimes().getLength();
    sendPinch (1.25f);
    EXPECT_NEAR (getTimes().getLength(), before / 1.25, 1.0);
}

TEST_F (ExploreGesturesTest, ADoubleClickGoesBackToTheFrozenPicture)
{
    freezeUnderMouse();
    const auto frozen = paint();
    const auto before = getParameters();

    sendWheel (0.0f, 0.4f, 0, false);
    sendWheel (0.0f, 0.4f, juce::ModifierKeys::commandModifier, false);
    ASSERT_TRUE (getExplorer().isExploring());
    ASSERT_TRUE (waitForPicture());
    EXPECT_FALSE (areSame (paint(), frozen));

    for (int i = 0; i < 2; ++i)
    {
        window->press();
        window->release();
    }

    ASSERT_TRUE (waitForExploring (false));
    waitForTicks();
    EXPECT_FALSE (getExplorer().isExploring());
    EXPECT_EQ (getParameters(), before);
    ASSERT_TRUE (pumpUntil ([this] { return ! getPicture().isCrosshairVisible(); }));
    EXPECT_TRUE (areSame (paint(), frozen));
}

TEST_F (ExploreGesturesTest, KeysZoomMoveAndGoBack)
{
    freezeUnderMouse();
    ASSERT_TRUE (typeAndWait ('+'));
    const auto home = getTimes().getHomeLength();
    EXPECT_NEAR (getTimes().getLength(), home / std::sqrt (2.0), 2.0);
    ASSERT_TRUE (typeAndWait ('+'));
    ASSERT_TRUE (typeAndWait (0xff51)); // left
    const auto left = getTimes().getStart();
    ASSERT_TRUE (typeAndWait (0xff53)); // right
    EXPECT_GT (getTimes().getStart(), left);

    ASSERT_TRUE (typeAndWait (0xff50)); // Home
    EXPECT_EQ (getTimes().getStart(), getTimes().getSoundStart());
    ASSERT_TRUE (typeAndWait (0xff57)); // End
    EXPECT_EQ (getTimes().getEnd(), getTimes().getSoundEnd());
    const auto last = getTimes().getStart();
    ASSERT_TRUE (typeAndWait (0xff55)); // Page Up
    EXPECT_LT (getTimes().getStart(), last);
    ASSERT_TRUE (typeAndWait (0xff56)); // Page Down
    EXPECT_DOUBLE_EQ (getTimes().getStart(), last);
    ASSERT_TRUE (typeAndWait ('-'));
    EXPECT_NEAR (getTimes().getLength(), home / std::sqrt (2.0), 2.0);

    window->typeKey ('0');
    EXPECT_TRUE (waitForExploring (false));
}

TEST_F (ExploreGesturesTest, EscapeEndsIt)
{
    freezeUnderMouse();
    const auto frozen = paint();
    ASSERT_TRUE (typeAndWait ('+'));
    ASSERT_TRUE (waitForPicture());
    window->typeKey (Screen::escapeKey);
    ASSERT_TRUE (waitForExploring (false));
    EXPECT_TRUE (areSame (paint(), frozen));
}

} // namespace
} // namespace mk::orlo::test
