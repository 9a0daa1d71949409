// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the strip below an explored picture with the real mouse; needs a display.
#include "ExploreInWindow.h"

namespace mk::orlo::test
{
namespace
{

class TimeStripTest : public ExploreInWindowTest
{
protected:
    [[nodiscard]] TimeStrip& getStrip() { return window->getContainer().getTimeStrip(); }

    /** Looks at the middle third of the sound. */
    void lookAtTheMiddle()
    {
        freeze();
        ASSERT_TRUE (getExploration().changeTimeView (
            [] (TimeView& times)
            {
                const auto length = times.getSoundEnd() - times.getSoundStart();
                times.setRange (times.getSoundStart() + length / 3.0, length / 3.0);
            }));
        ASSERT_TRUE (getStrip().isShowing());
    }

    /** A place in the small picture, as a share of the sound. */
    [[nodiscard]] juce::Point<int> getPlace (double share)
    {
        const auto area = getStrip().getOverviewArea();
        return { area.getX() + juce::roundToInt (share * area.getWidth()), area.getCentreY() };
    }

    /** Drags from one share of the sound to another, and waits until the range has changed. */
    [[nodiscard]] bool drag (double from, double to)
    {
        const auto start = getTimes().getStart(), length = getTimes().getLength();

        if (! window->moveTo (getStrip(), getPlace (from)))
            return false;

        window->press();
        const auto arrived =
            pumpUntil ([this] { return getStrip().isMouseButtonDown(); }) && window->moveTo (getStrip(), getPlace (to));
        window->release();

        return arrived && pumpUntil ([this] { return ! getStrip().isMouseButtonDown(); })
               && (! juce::exactlyEqual (getTimes().getStart(), start)
                   || ! juce::exactlyEqual (getTimes().getLength(), length));
    }

    [[nodiscard]] double getShare (double sample)
    {
        return (sample - getTimes().getSoundStart()) / (getTimes().getSoundEnd() - getTimes().getSoundStart());
    }
};

TEST_F (TimeStripTest, ShowsRulerAndOverview)
{
    lookAtTheMiddle();
    EXPECT_GE (getStrip().getTicks().size(), 2u);
    EXPECT_TRUE (pumpUntil ([this] { return getStrip().getOverview().getImage().isValid(); }, 60.0));
    EXPECT_TRUE (window->getContainer().getLevelBar().isShowing());
    EXPECT_GE (getStrip().getY(), getPicture().getBottom());

    auto& main = window->getMain();
    const auto bar = main.getLocalArea (&window->getContainer(), window->getContainer().getLevelBar().getBounds());
    EXPECT_LE (main.getViewButton().getRight(), bar.getX());
}

TEST_F (TimeStripTest, TheWindowIsDraggedAndPulledAtItsEdges)
{
    lookAtTheMiddle();
    ASSERT_TRUE (drag (0.5, 0.6));
    EXPECT_NEAR (getShare (getTimes().getStart()), 1.0 / 3.0 + 0.1, 0.01);
    EXPECT_NEAR (getShare (getTimes().getEnd()), 2.0 / 3.0 + 0.1, 0.01);

    const auto end = getTimes().getEnd();
    ASSERT_TRUE (drag (getShare (getTimes().getStart()), 0.2));
    EXPECT_NEAR (getShare (getTimes().getStart()), 0.2, 0.01);
    EXPECT_NEAR (getTimes().getEnd(), end, 1.0);

    ASSERT_TRUE (drag (getShare (getTimes().getEnd()), 0.5));
    EXPECT_NEAR (getShare (getTimes().getEnd()), 0.5, 0.01);
    EXPECT_NEAR (getShare (getTimes().getStart()), 0.2, 0.01);
}

TEST_F (TimeStripTest, APressBesideTheWindowTakesItThere)
{
    lookAtTheMiddle();
    ASSERT_TRUE (window->moveTo (getStrip(), getPlace (0.2)));
    window->press();
    window->release();
    EXPECT_TRUE (pumpUntil ([this] { return std::abs (getShare (getTimes().getSampleAt (0.5)) - 0.2) < 0.01; }));
}

TEST_F (TimeStripTest, HasAMenuOfItsOwnForTheUnit)
{
    lookAtTheMiddle();
    ASSERT_TRUE (window->click (getStrip(), EditorWindow::rightButton));
    ASSERT_TRUE (waitForMenu());
    EXPECT_NE (findMenuRow ("Seconds"), nullptr);
    EXPECT_NE (findMenuRow ("Bars and beats"), nullptr);
    EXPECT_EQ (findMenuRow ("Unfreeze"), nullptr) << "the picture's menu has opened";
    juce::PopupMenu::dismissAllActiveMenus();
    EXPECT_TRUE (waitUntilNoMenu());
    EXPECT_FALSE (getStrip().hasBars());
}

TEST_F (TimeStripTest, IsReadAndMovedByScreenReaders)
{
    lookAtTheMiddle();
    auto* const handler = getStrip().getAccessibilityHandler();
    ASSERT_NE (handler, nullptr);
    EXPECT_EQ (handler->getTitle(), "Time strip");
    auto* const value = handler->getValueInterface();
    ASSERT_NE (value, nullptr);
    EXPECT_TRUE (value->getCurrentValueAsString().contains (" s .. -"));
    const auto range = value->getRange();
    value->setValue (range.getMinimumValue());
    EXPECT_NEAR (getTimes().getStart(), getTimes().getSoundStart(), 1.0);
    value->setValue (range.getMaximumValue());
    EXPECT_NEAR (getTimes().getEnd(), getTimes().getSoundEnd(), 1.0);
}

TEST_F (TimeStripTest, HasTheKeysOfThePicture)
{
    lookAtTheMiddle();
    const auto start = getTimes().getStart();
    EXPECT_TRUE (getStrip().keyPressed (juce::KeyPress (juce::KeyPress::leftKey)));
    EXPECT_LT (getTimes().getStart(), start);
    EXPECT_FALSE (getStrip().keyPressed (juce::KeyPress (juce::KeyPress::spaceKey)));
    EXPECT_TRUE (getStrip().keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_FALSE (getExplorer().isExploring());
}

} // namespace
} // namespace mk::orlo::test
