// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/attachments/TwoValueSliderAttachment.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Mouse.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::pluginCore
{
namespace
{
using orlo::test::GestureRecorder;
using orlo::test::pumpPending;
using orlo::test::pumpUntil;

class TwoValueSliderAttachmentTest : public ::testing::Test
{
protected:
    TwoValueSliderAttachmentTest() { slider.setSize (200, 20); }

    orlo::test::TestProcessor processor;
    juce::AudioProcessorValueTreeState& state = processor.getParameterState();
    juce::Slider slider { juce::Slider::TwoValueHorizontal, juce::Slider::NoTextBox };
    TwoValueSliderAttachment attachment { state, { "floor", "ceiling" }, slider };
    GestureRecorder floor { processor.getParameter ("floor") };
    GestureRecorder ceiling { processor.getParameter ("ceiling") };
};

TEST_F (TwoValueSliderAttachmentTest, TheSliderStartsWithTheValuesAndTheRangeOfTheParameters)
{
    EXPECT_DOUBLE_EQ (slider.getMinimum(), -140.0);
    EXPECT_DOUBLE_EQ (slider.getMaximum(), 0.0);
    EXPECT_DOUBLE_EQ (slider.getMinValue(), -100.0);
    EXPECT_DOUBLE_EQ (slider.getMaxValue(), 0.0);
}

TEST_F (TwoValueSliderAttachmentTest, TheThumbsFollowTheSkewOfTheMinimum)
{
    juce::Slider skewed { juce::Slider::TwoValueHorizontal, juce::Slider::NoTextBox };
    const TwoValueSliderAttachment other { state, { "skewed", "ceiling" }, skewed };
    const auto& parameter = processor.getParameter ("skewed");
    EXPECT_NEAR (skewed.valueToProportionOfLength (10.0), double (parameter.convertTo0to1 (10.0f)), 1e-6);
    EXPECT_NEAR (skewed.proportionOfLengthToValue (0.5), double (parameter.convertFrom0to1 (0.5f)), 1e-6);
}

TEST_F (TwoValueSliderAttachmentTest, AValueSetOnTheMessageThreadShowsAtOnce)
{
    processor.setValue ("floor", -80.0f);
    processor.setValue ("ceiling", -20.0f);
    EXPECT_NEAR (slider.getMinValue(), -80.0, 1e-4);
    EXPECT_NEAR (slider.getMaxValue(), -20.0, 1e-4);
    EXPECT_EQ (floor.take(), ".") << "the slider does not write back what it shows";
    EXPECT_EQ (ceiling.take(), ".");
}

TEST_F (TwoValueSliderAttachmentTest, ANewMinimumAboveTheMaximumMovesTheMaximumAlong)
{
    processor.setValue ("ceiling", -60.0f);
    processor.setValue ("floor", -40.0f);
    EXPECT_NEAR (slider.getMinValue(), -40.0, 1e-4);
    EXPECT_NEAR (slider.getMaxValue(), -40.0, 1e-4);
}

TEST_F (TwoValueSliderAttachmentTest, AValueSetByAnotherThreadShowsOnTheMessageThread)
{
    std::thread ([this] { processor.setValue ("floor", -70.0f); }).join();
    EXPECT_NEAR (slider.getMinValue(), -100.0, 1e-4);
    EXPECT_TRUE (pumpUntil ([this] { return std::abs (slider.getMinValue() + 70.0) < 1e-4; }));
}

TEST_F (TwoValueSliderAttachmentTest, APendingValueIsNotLostWhenTheMessageThreadSetsTheOther)
{
    std::thread ([this] { processor.setValue ("floor", -70.0f); }).join();
    processor.setValue ("ceiling", -10.0f);
    pumpPending();
    EXPECT_NEAR (slider.getMinValue(), -70.0, 1e-4);
    EXPECT_NEAR (slider.getMaxValue(), -10.0, 1e-4);
}

TEST_F (TwoValueSliderAttachmentTest, DraggingTheMinimumPastTheMaximumWritesBothWithAGestureOnTheMinimumOnly)
{
    processor.setValue ("ceiling", -70.0f);
    static_cast<void> (floor.take() + ceiling.take());
    const auto left = juce::ModifierKeys (juce::ModifierKeys::leftButtonModifier);
    const auto x = slider.getPositionOfValue (-100.0);

    slider.mouseDown (orlo::test::makeMouseEvent (slider, { x, 10.0f }, left));
    EXPECT_EQ (slider.getThumbBeingDragged(), 1);
    slider.mouseDrag (orlo::test::makeMouseEvent (slider, { slider.getPositionOfValue (-30.0), 10.0f }, left));
    slider.mouseUp (orlo::test::makeMouseEvent (slider, { slider.getPositionOfValue (-30.0), 10.0f }, left));
    pumpPending();

    EXPECT_NEAR (processor.getValue ("floor"), -30.0f, 1.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), processor.getValue ("floor"));
    EXPECT_EQ (floor.take(), "[.]");
    EXPECT_EQ (ceiling.take(), ".");
}

TEST_F (TwoValueSliderAttachmentTest, EachDragIsOneTransaction)
{
    const auto drag = [this] (double minimum)
    {
        const juce::Slider::ScopedDragNotification notification (slider);
        slider.setMinValue (minimum - 1.0, juce::sendNotificationSync);
        slider.setMinValue (minimum, juce::sendNotificationSync);
    };

    drag (-90.0);
    drag (-80.0);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -90.0f, 1e-3f);
    EXPECT_NEAR (slider.getMinValue(), -90.0, 1e-3);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -100.0f, 1e-3f);
}

TEST_F (TwoValueSliderAttachmentTest, TheRightButtonWritesNothing)
{
    const juce::ScopedValueSetter<juce::ModifierKeys> held (
        juce::ModifierKeys::currentModifiers, juce::ModifierKeys (juce::ModifierKeys::rightButtonModifier));
    slider.setMinValue (-50.0, juce::sendNotificationSync);
    EXPECT_EQ (floor.take(), "");
}

TEST_F (TwoValueSliderAttachmentTest, IdsThatNameNoParameterAreIgnored)
{
    struct Case
    {
        juce::StringArray ids;
        const char *heardOfFloor, *heardOfCeiling;
    };

    // The effect of a drag of the maximum's thumb on the parameters.
    for (const auto& [ids, heardOfFloor, heardOfCeiling] :
         { Case { {}, "", "" }, { { "nothing", "ceiling" }, "", "[.]" }, { { "floor" }, ".", "" } })
    {
        SCOPED_TRACE (ids.joinIntoString (" "));
        processor.setValue ("floor", -100.0f);
        processor.setValue ("ceiling", 0.0f);
        juce::Slider other { juce::Slider::TwoValueHorizontal, juce::Slider::NoTextBox };
        other.setRange (-140.0, 0.0);
        other.setMinAndMaxValues (-100.0, 0.0, juce::dontSendNotification);
        const TwoValueSliderAttachment lame { state, ids, other };
        static_cast<void> (floor.take());
        static_cast<void> (ceiling.take());

        {
            const juce::Slider::ScopedDragNotification notification (other);
            other.setMinAndMaxValues (-50.0, -20.0, juce::sendNotificationSync);
        }

        EXPECT_EQ (floor.take(), heardOfFloor);
        EXPECT_EQ (ceiling.take(), heardOfCeiling);

        processor.setValue ("floor", -90.0f);
        EXPECT_NEAR (other.getMinValue(), ids.contains ("floor") ? -90.0 : -50.0, 1.0e-3);
    }
}

TEST_F (TwoValueSliderAttachmentTest, NothingIsDeliveredAfterItsDestruction)
{
    juce::Slider other { juce::Slider::TwoValueHorizontal, juce::Slider::NoTextBox };

    {
        const TwoValueSliderAttachment shortLived { state, { "floor", "ceiling" }, other };
        std::thread ([this] { processor.setValue ("floor", -70.0f); }).join();
    }

    pumpPending();
    EXPECT_NEAR (other.getMinValue(), -100.0, 1e-4);
    other.setMinValue (-50.0, juce::sendNotificationSync);
    EXPECT_NEAR (processor.getValue ("floor"), -70.0f, 1e-4f);
}

//==============================================================================
struct CountingAttachment final : public AttachedParamsControlBase
{
    explicit CountingAttachment (juce::AudioProcessorValueTreeState& stateToUse)
        : AttachedParamsControlBase (stateToUse)
    {
        listenTo ("floor");
    }

    ~CountingAttachment() override { stopListening(); }

    void setValue (const juce::String&, float value) override
    {
        EXPECT_TRUE (juce::MessageManager::existsAndIsCurrentThread());
        ++numUpdates;
        last = value;
    }

    int numUpdates = 0;
    float last = 0.0f;
};

TEST_F (TwoValueSliderAttachmentTest, TenValuesOfAnotherThreadGiveOneUpdateWithTheLast)
{
    CountingAttachment counting { state };

    std::thread (
        [this]
        {
            for (int i = 1; i <= 10; ++i)
                processor.setValue ("floor", -float (i));
        })
        .join();

    EXPECT_EQ (counting.numUpdates, 0);
    pumpPending();
    EXPECT_EQ (counting.numUpdates, 1);
    EXPECT_NEAR (counting.last, -10.0f, 1e-4f);
}

} // namespace
} // namespace mk::pluginCore
