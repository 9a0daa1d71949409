// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests presses on the picture with the real mouse; needs a display.
#include "tests/orlo/window/EditorInWindow.h"
#include "tests/support/MouseCounter.h"

namespace mk::orlo::test
{
namespace
{

class PictureMouseTest : public EditorInWindowTest
{
protected:
    /** Presses in the middle of the picture, moves a few pixels away, and waits for the picture to receive both. */
    [[nodiscard]] bool pressAndMove (int button, const MouseCounter& mouse)
    {
        auto& picture = window->getPicture();
        window->press (button);

        return pumpUntil ([&] { return mouse.numDown == 1; })
               && window->moveTo (picture, picture.getLocalBounds().getCentre().translated (7, 5))
               && pumpUntil ([&] { return mouse.numDragged > 0; });
    }

    void expectNothingHeld()
    {
        EXPECT_FALSE (window->getPicture().isCrosshairVisible());
        EXPECT_EQ (window->getContainer().getKeyboard().getHighlightedNote(), KeyboardScaleComponent::noNote);
        EXPECT_EQ (window->getContainer().getReadout().getBounds(), hoverReadout)
            << "the readout has moved from its place at rest to the cursor";
    }

    /** Moves the mouse to the middle of the picture and stores the bounds of the readout while hovering. */
    [[nodiscard]] bool hover()
    {
        if (! window->moveToCentre (window->getPicture()))
            return false;

        hoverReadout = window->getContainer().getReadout().getBounds();
        return true;
    }

    juce::Rectangle<int> hoverReadout;
};

TEST_F (PictureMouseTest, ALeftPressHoldsTheCrosshairAndTheReadoutFollows)
{
    ASSERT_TRUE (hover());
    MouseCounter mouse (window->getPicture());
    ASSERT_TRUE (pressAndMove (EditorWindow::leftButton, mouse));
    EXPECT_TRUE (window->getPicture().isCrosshairVisible());
    EXPECT_NE (window->getContainer().getKeyboard().getHighlightedNote(), KeyboardScaleComponent::noNote);
    EXPECT_NE (window->getContainer().getReadout().getBounds(), hoverReadout);

    window->release();
    EXPECT_TRUE (pumpUntil ([&] { return mouse.numUp == 1; }));
    EXPECT_FALSE (window->getPicture().isCrosshairVisible());
}

TEST_F (PictureMouseTest, AShiftClickWithAMoveFreezesAndShowsNoReadoutAtTheCursor)
{
    ASSERT_TRUE (hover());
    MouseCounter mouse (window->getPicture());
    ASSERT_TRUE (holdModifier (Screen::shiftKey, juce::ModifierKeys::shiftModifier));
    ASSERT_TRUE (pressAndMove (EditorWindow::leftButton, mouse));
    EXPECT_GE (get (Params::id::freeze), 0.5f);
    expectNothingHeld();

    window->releaseAll();
    EXPECT_TRUE (pumpUntil ([&] { return mouse.numUp == 1; }));
    EXPECT_GE (get (Params::id::freeze), 0.5f) << "the release has toggled Freeze again";
}

TEST_F (PictureMouseTest, APressOfTheMiddleButtonDoesNothing)
{
    ASSERT_TRUE (hover());
    MouseCounter mouse (window->getPicture());
    const auto before = getParameters();
    ASSERT_TRUE (pressAndMove (EditorWindow::middleButton, mouse));
    expectNothingHeld();

    window->release();
    EXPECT_TRUE (pumpUntil ([&] { return mouse.numUp == 1; }));
    EXPECT_EQ (getParameters(), before);
}

} // namespace
} // namespace mk::orlo::test
