// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/MouseFade.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using State = GenericComponentAnimator::State;

[[nodiscard]] GenericComponentAnimator::Times timesAt (State state, int elapsed, int duration)
{
    GenericComponentAnimator::Times times;
    times.state = state;
    times.elapsed[size_t (state)] = elapsed;
    times.durations[size_t (state)] = duration;
    return times;
}

TEST (MouseFadeTest, HoverFadesInAndOut)
{
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (State::entered, 40, 160), true), 0.25f);
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (State::entered, 400, 160), true), 1.0f);
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (State::left, 40, 160), false), 0.75f);
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (State::left, 400, 160), false), 0.0f);
}

TEST (MouseFadeTest, AFadeWithoutADurationEndsAtOnce)
{
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (State::entered, 0, 0), true), 1.0f);
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (State::left, 0, 0), false), 0.0f);
}

TEST (MouseFadeTest, WithoutAFadeTheMousePositionDecides)
{
    for (const auto state : { State::idle, State::pressed, State::released, State::clicked })
    {
        EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (state, 10, 100), true), 1.0f);
        EXPECT_FLOAT_EQ (mouseFade::hoverFactor (timesAt (state, 10, 100), false), 0.0f);
    }
}

TEST (MouseFadeTest, AComponentWithoutAnAnimationDoesNotFade)
{
    const juce::Component component;
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (component), 0.0f);
}

TEST (MouseFadeTest, ATurnIsAFullRotationAndEndsWhereItBegan)
{
    EXPECT_FLOAT_EQ (mouseFade::turnAngle (timesAt (State::entered, 0, 200), false), 0.0f);
    EXPECT_FLOAT_EQ (mouseFade::turnAngle (timesAt (State::entered, 100, 200), false), 6.2831855f * 0.5f);
    EXPECT_FLOAT_EQ (mouseFade::turnAngle (timesAt (State::entered, 200, 200), false), 0.0f);
    EXPECT_FLOAT_EQ (mouseFade::turnAngle (timesAt (State::entered, 100, 200), true), 0.0f);
    EXPECT_FLOAT_EQ (mouseFade::turnAngle (timesAt (State::pressed, 50, 200), true), 6.2831855f * 0.25f);
    EXPECT_FLOAT_EQ (mouseFade::turnAngle (timesAt (State::idle, 50, 200), true), 0.0f);
}
} // namespace
} // namespace mk::pluginCore
