// SPDX-License-Identifier: AGPL-3.0-or-later
// Checks how much of the window is repainted, and how often.
#include "ContainerInFakeWindow.h"

#include <thread>

namespace mk::orlo::test
{
namespace
{

using RepaintTest = ContainerInFakeWindow;

TEST_F (RepaintTest, StaticRepaintsOnlyTheColumnsThatHaveChanged)
{
    for (int i = 0; i < 20; ++i)
    {
        const auto writeX = builder.getPicture().getWriteX();
        play (2, 1.0f);
        tick();
        const auto area = recorder.take().getBounds();
        EXPECT_EQ (area.getWidth(), 4) << "two columns, and one on either side for a scaled screen";
        EXPECT_EQ (area.getX(), writeX - 1);
        EXPECT_TRUE (view.getBounds().contains (area));
    }
}

TEST_F (RepaintTest, NothingIsRepaintedWhileNothingIsNew)
{
    for (const auto drawMode : { 0.0f, 1.0f })
    {
        set (Params::id::drawMode, drawMode);
        play (20, 1.0f);
        tick();
        static_cast<void> (recorder.take());
        const auto dueCount = processor.getFrameClock().dueCount.load();

        for (int i = 0; i < 100; ++i)
            tick();

        EXPECT_TRUE (recorder.take().isEmpty());
        EXPECT_EQ (processor.getFrameClock().dueCount.load(), dueCount) << "the builder is not woken";
    }
}

TEST_F (RepaintTest, SilenceThatHasScrolledThroughIsNotRepainted)
{
    for (const auto drawMode : { 0.0f, 1.0f })
    {
        set (Params::id::drawMode, drawMode);
        play (20, 1.0f);
        tick();

        for (int i = 0; i < 20; ++i)
        {
            play (40, 0.0f);
            tick();
        }

        static_cast<void> (recorder.take());

        for (int i = 0; i < 20; ++i)
        {
            play (5, 0.0f);
            tick();
        }

        EXPECT_TRUE (recorder.take().isEmpty());
        play (5, 1.0f); // a single hop at the end of the window is hardly louder than the floor
        tick();
        EXPECT_FALSE (recorder.take().isEmpty());
    }
}

TEST_F (RepaintTest, ThereAreAtLeastFifteenMillisecondsFromOneRepaintToTheNext)
{
    set (Params::id::drawMode, 1.0f);
    play (3, 1.0f);
    tick();
    static_cast<void> (recorder.take());

    for (const auto refreshRate : { 50.0, 60.0, 75.0, 100.0, 120.0, 144.0, 240.0 })
    {
        auto lastRepaint = 0.0;
        int numRepaints = 0;

        for (int i = 0; i < int (refreshRate); ++i)
        {
            play (1, 1.0f);
            builder.processTick (1.0f);
            view.tick (time += 1.0 / refreshRate);

            if (! recorder.take().isEmpty())
            {
                ++numRepaints;
                EXPECT_GE (time - lastRepaint, 0.015 - 1.0e-9) << refreshRate;
                lastRepaint = time;
            }
        }

        EXPECT_GE (numRepaints, 33) << refreshRate;
    }
}

TEST_F (RepaintTest, AValueSetOnAnotherThreadIsNoticedAtTheNextTick)
{
    const auto hop = worker.getHop();
    std::thread ([this] { set (Params::id::speed, 100.0f); }).join();
    EXPECT_EQ (worker.getHop(), hop);
    tick();
    EXPECT_NE (worker.getHop(), hop);
}

TEST_F (RepaintTest, AMovedCrosshairIsRepaintedWhereItWasAndIs)
{
    // Without the container's readout, which moves too.
    view.onMouseHeld = [] (const juce::MouseEvent&, float) {};
    mouse (&SpectrogramComponent::mouseDown, { 50.0f, 40.0f });
    static_cast<void> (recorder.take());
    mouse (&SpectrogramComponent::mouseDrag, { 80.0f, 60.0f });
    const auto areas = recorder.take();

    for (const auto& point : { juce::Point { 2, 40 }, { 2, 60 }, { 50, 90 }, { 80, 90 } })
        EXPECT_TRUE (areas.containsPoint (point)) << point.toString();

    for (const auto& point : { juce::Point { 2, 50 }, { 2, 90 }, { 65, 90 } })
        EXPECT_FALSE (areas.containsPoint (point)) << point.toString();
}

} // namespace
} // namespace mk::orlo::test
