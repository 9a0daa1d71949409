// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/PluginSliderControl.h"
#include "plugin_core/style/MouseFade.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/PeerMouse.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::pluginCore
{
namespace
{
using orlo::test::GestureRecorder;
using orlo::test::PeerMouse;
using orlo::test::pumpPending;
using orlo::test::pumpUntil;

class PluginSliderControlTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (! orlo::test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "no display";

        window = std::make_unique<orlo::test::Window> (500, 300);
        mouse = std::make_unique<PeerMouse> (*window);
        window->addAndMakeVisible (one);
        one.setBounds (50, 50, 200, 30);
        one.getSlider().setTextBoxStyle (juce::Slider::NoTextBox, false, 0, 0);
        one.getSlider().setMouseDragSensitivity (125);
        window->addAndMakeVisible (two);
        two.setBounds (50, 120, 200, 60);
    }

    void TearDown() override { window.reset(); }

    [[nodiscard]] juce::Point<float> placeOf (double value)
    {
        return { two.getSlider().getPositionOfValue (value), 10.0f };
    }

    /** Types into a value label as a user does. */
    void type (int index, const juce::String& text)
    {
        auto& label = *two.getValueLabel (index);
        label.showEditor();
        ASSERT_NE (label.getCurrentTextEditor(), nullptr);
        label.getCurrentTextEditor()->setText (text, false);
        label.hideEditor (false);
    }

    orlo::test::TestProcessor processor;
    std::unique_ptr<orlo::test::Window> window;
    std::unique_ptr<PeerMouse> mouse;
    PluginSliderControl one { processor, "floor", "Lower limit" };
    PluginSliderControl two { processor, juce::StringArray { "floor", "ceiling" }, {} };
    GestureRecorder floor { processor.getParameter ("floor") };
    GestureRecorder ceiling { processor.getParameter ("ceiling") };
};

TEST_F (PluginSliderControlTest, TheSliderTakesValueTextAndDefaultFromTheParameter)
{
    auto& slider = one.getSlider();
    EXPECT_DOUBLE_EQ (slider.getValue(), -100.0);
    EXPECT_EQ (slider.getTextFromValue (-60.0), processor.getParameter ("floor").getText (80.0f / 140.0f, 0));
    EXPECT_DOUBLE_EQ (slider.getDoubleClickReturnValue(), -100.0);
    EXPECT_EQ (slider.getTitle(), "Lower limit");
    EXPECT_EQ (two.getSlider().getTitle(), "Floor");
    EXPECT_EQ (two.getValueLabel (1)->getTitle(), "Ceiling");
    EXPECT_EQ (one.getValueLabel (0), nullptr);
    EXPECT_EQ (slider.getMouseAnimator().getTickMs(), 40);
}

TEST_F (PluginSliderControlTest, ADragIsOneGestureAndOneTransaction)
{
    auto& slider = one.getSlider();
    const auto drag = [&] (float distance)
    {
        mouse->press (slider, { 100.0f, 15.0f });
        mouse->drag (slider, { 100.0f + distance * 0.5f, 15.0f });
        mouse->drag (slider, { 100.0f + distance, 15.0f });
        mouse->release (slider, { 100.0f + distance, 15.0f });
    };

    drag (25.0f);
    EXPECT_NEAR (processor.getValue ("floor"), -72.0f, 0.5f) << "a fifth of 125 pixels is a fifth of the range";
    EXPECT_EQ (floor.take(), "[..]");
    drag (-50.0f);
    EXPECT_NEAR (processor.getValue ("floor"), -128.0f, 0.5f);

    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -72.0f, 0.5f);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -100.0f, 1e-3f);
}

TEST_F (PluginSliderControlTest, AClickAloneDoesNotMoveTheSlider)
{
    mouse->click (one.getSlider(), { 20.0f, 15.0f });
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (floor.take(), "[]");
}

TEST_F (PluginSliderControlTest, NeitherTheRightButtonNorCtrlMovesItOrStartsADrag)
{
    for (const auto modifiers : { PeerMouse::right, PeerMouse::left | PeerMouse::ctrl })
    {
        mouse->press (one.getSlider(), { 100.0f, 15.0f }, modifiers);
        mouse->drag (one.getSlider(), { 160.0f, 15.0f }, modifiers);
        mouse->release (one.getSlider(), { 160.0f, 15.0f }, modifiers);
        mouse->doubleClick (one.getSlider(), { 100.0f, 15.0f }, modifiers);

        mouse->press (two.getSlider(), placeOf (-100.0), modifiers);
        mouse->drag (two.getSlider(), placeOf (-50.0), modifiers);
        mouse->release (two.getSlider(), placeOf (-50.0), modifiers);
    }

    pumpPending();
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (floor.take() + ceiling.take(), "");
}

TEST_F (PluginSliderControlTest, ADoubleClickResetsToTheDefaultByAGesture)
{
    processor.setValue ("floor", -20.0f);
    static_cast<void> (floor.take());
    mouse->doubleClick (one.getSlider(), { 100.0f, 15.0f });
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (floor.take(), "[][][.]");
}

TEST_F (PluginSliderControlTest, ADoubleClickWithoutAValueForItDoesNothing)
{
    processor.setValue ("floor", -20.0f);
    one.getSlider().setDoubleClickReturnValue (false, 0.0);
    mouse->doubleClick (one.getSlider(), { 100.0f, 15.0f });
    one.getSlider().setDoubleClickReturnValue (true, 1000.0);
    mouse->doubleClick (one.getSlider(), { 100.0f, 15.0f });
    mouse->doubleClick (two.getSlider(), placeOf (-20.0));
    EXPECT_NEAR (processor.getValue ("floor"), -20.0f, 1e-3f);
}

TEST_F (PluginSliderControlTest, TheWheelMovesTheSliderByAGesture)
{
    mouse->turnWheel (one.getSlider(), { 100.0f, 15.0f }, 0.5f);
    EXPECT_GT (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (floor.take(), "[.]");
}

TEST_F (PluginSliderControlTest, ArrowKeysMoveTheSliderByAGesture)
{
    auto& slider = one.getSlider();
    EXPECT_TRUE (slider.getWantsKeyboardFocus());
    EXPECT_TRUE (slider.keyPressed (juce::KeyPress (juce::KeyPress::upKey)));
    EXPECT_NEAR (processor.getValue ("floor"), -98.6f, 1e-3f);
    EXPECT_EQ (floor.take(), "[.]");
    EXPECT_TRUE (slider.keyPressed (juce::KeyPress (juce::KeyPress::leftKey)));
    EXPECT_NEAR (processor.getValue ("floor"), -100.0f, 1e-3f);
    EXPECT_FALSE (slider.keyPressed (juce::KeyPress (juce::KeyPress::spaceKey)));
    EXPECT_FALSE (two.getSlider().keyPressed (juce::KeyPress (juce::KeyPress::upKey)));
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -98.6f, 1e-3f);
}

TEST_F (PluginSliderControlTest, ReturnEditsTheText)
{
    auto& slider = one.getSlider();
    EXPECT_FALSE (slider.keyPressed (juce::KeyPress (juce::KeyPress::returnKey))) << "there is no text box";
    slider.setTextBoxStyle (juce::Slider::TextBoxLeft, false, 80, 20);
    EXPECT_TRUE (slider.keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    auto* label = dynamic_cast<juce::Label*> (slider.getChildComponent (0));
    ASSERT_NE (label, nullptr);
    ASSERT_NE (label->getCurrentTextEditor(), nullptr);
    label->getCurrentTextEditor()->setText ("-33", false);
    label->hideEditor (false);
    EXPECT_NEAR (processor.getValue ("floor"), -33.0f, 1e-3f);
    EXPECT_EQ (floor.take(), "[.]");
}

TEST_F (PluginSliderControlTest, TheTextBoxIsNoStopOfTheTabKeyInAnyStyleOrAfterBeingDisabled)
{
    auto& slider = one.getSlider();

    for (const auto position : { juce::Slider::TextBoxLeft, juce::Slider::TextBoxRight })
    {
        slider.setTextBoxStyle (position, false, 80, 20);
        EXPECT_FALSE (slider.getChildComponent (0)->getWantsKeyboardFocus());
        one.setEnabled (false);
        one.setEnabled (true);
        EXPECT_FALSE (slider.getChildComponent (0)->getWantsKeyboardFocus());
    }
}

TEST_F (PluginSliderControlTest, TheTextBoxHasTheTooltipToo)
{
    auto& slider = one.getSlider();
    slider.setTextBoxStyle (juce::Slider::TextBoxLeft, false, 80, 20);
    one.setTooltip ("help");
    auto* label = dynamic_cast<juce::Label*> (slider.getChildComponent (0));
    ASSERT_NE (label, nullptr);
    EXPECT_EQ (slider.getTooltip(), "help");
    EXPECT_EQ (label->getTooltip(), "help");
    two.setTooltip ("more help");
    EXPECT_EQ (two.getValueLabel (1)->getTooltip(), "more help");
}

TEST_F (PluginSliderControlTest, TheAccessibleValueAndHelpAreThoseOfTheSlider)
{
    one.setTooltip ("help");
    const auto* handler = one.getSlider().getAccessibilityHandler();
    ASSERT_NE (handler, nullptr);
    EXPECT_EQ (handler->getTitle(), "Lower limit");
    EXPECT_EQ (handler->getHelp(), "help");
    ASSERT_NE (handler->getValueInterface(), nullptr);
    EXPECT_EQ (handler->getValueInterface()->getCurrentValueAsString(), one.getSlider().getTextFromValue (-100.0));
}

TEST_F (PluginSliderControlTest, APressStartsTheAnimation)
{
    auto& slider = one.getSlider();
    mouse->press (slider, { 100.0f, 15.0f });
    EXPECT_EQ (slider.getMouseAnimationTimes().state, GenericComponentAnimator::State::pressed);
    mouse->release (slider, { 100.0f, 15.0f });
    EXPECT_EQ (slider.getMouseAnimationTimes().state, GenericComponentAnimator::State::released);
}

TEST_F (PluginSliderControlTest, ANewPopupIsHandedOverOnceAndLetsClicksThrough)
{
    auto& slider = one.getSlider();
    auto numPopups = 0;
    slider.setPopupDisplayEnabled (true, false, window.get());
    slider.popupDisplayCreated = [&numPopups] (juce::Component& popup)
    {
        ++numPopups;
        auto self = true, children = true;
        popup.getInterceptsMouseClicks (self, children);
        EXPECT_FALSE (self || children);
    };

    for (int i = 1; i <= 2; ++i)
    {
        mouse->press (slider, { 100.0f, 15.0f });
        mouse->drag (slider, { 110.0f, 15.0f });
        mouse->drag (slider, { 120.0f, 15.0f });
        mouse->release (slider, { 120.0f, 15.0f });
        EXPECT_EQ (numPopups, i);
    }
}

TEST_F (PluginSliderControlTest, TheBroadcasterReportsChanges)
{
    struct Listener final : public juce::ChangeListener
    {
        void changeListenerCallback (juce::ChangeBroadcaster*) override { ++numChanges; }
        int numChanges = 0;
    };

    Listener listener;
    one.addChangeListener (&listener);
    processor.setValue ("floor", -50.0f);
    one.dispatchPendingMessages();
    EXPECT_EQ (listener.numChanges, 1);
    one.removeChangeListener (&listener);
}

//==============================================================================
TEST_F (PluginSliderControlTest, TwoValuesHaveALabelEachBelowTheSlider)
{
    EXPECT_EQ (two.getSlider().getBounds(), juce::Rectangle<int> (0, 0, 200, 30));
    EXPECT_EQ (two.getValueLabel (0)->getBounds(), juce::Rectangle<int> (0, 29, 100, 22));
    EXPECT_EQ (two.getValueLabel (1)->getBounds(), juce::Rectangle<int> (100, 29, 100, 22));
    EXPECT_EQ (two.getValueLabel (0)->getJustificationType(), juce::Justification::centredLeft);
    EXPECT_EQ (two.getValueLabel (1)->getJustificationType(), juce::Justification::centredRight);
    two.setSize (0, 0);
    EXPECT_EQ (two.getValueLabel (1)->getBounds(), juce::Rectangle<int>());
}

TEST_F (PluginSliderControlTest, TypingInALabelMovesOnlyItsThumb)
{
    type (1, "-40");
    EXPECT_NEAR (processor.getValue ("ceiling"), -40.0f, 1e-3f);
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (ceiling.take(), "[.]");
    EXPECT_EQ (floor.take(), "");

    type (0, "-90");
    EXPECT_NEAR (processor.getValue ("floor"), -90.0f, 1e-3f);
    EXPECT_EQ (floor.take(), "[.]");
    EXPECT_EQ (ceiling.take(), "");

    type (0, "-20");
    EXPECT_NEAR (processor.getValue ("floor"), -40.0f, 1e-3f) << "the other thumb stops it";
    EXPECT_NEAR (processor.getValue ("ceiling"), -40.0f, 1e-3f);

    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -90.0f, 1e-3f);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_NEAR (processor.getValue ("floor"), -100.0f, 1e-3f);
}

TEST_F (PluginSliderControlTest, TheSameTextAgainSendsNothing)
{
    type (0, two.getValueLabel (0)->getText());
    EXPECT_EQ (floor.take(), "");
}

TEST_F (PluginSliderControlTest, TheLabelsFollowTheParametersOnAnyThread)
{
    processor.setValue ("floor", -77.0f);
    std::thread ([this] { processor.setValue ("ceiling", -11.0f); }).join();
    EXPECT_TRUE (pumpUntil (
        [this]
        {
            return two.getValueLabel (0)->getText() == two.getSlider().getTextFromValue (-77.0)
                   && two.getValueLabel (1)->getText() == two.getSlider().getTextFromValue (-11.0);
        }));
}

TEST_F (PluginSliderControlTest, AMessageToADeletedLabelDoesNothing)
{
    auto shortLived =
        std::make_unique<PluginSliderControl> (processor, juce::StringArray { "floor", "ceiling" }, juce::String());
    auto numTextsAsked = 0;
    shortLived->getSlider().textFromValueFunction = [&numTextsAsked] (double)
    {
        ++numTextsAsked;
        return juce::String();
    };

    // A pending message asks for the text of its value when it is delivered.
    processor.setValue ("floor", -77.0f);
    numTextsAsked = 0;
    pumpPending();
    EXPECT_GT (numTextsAsked, 0);

    processor.setValue ("floor", -78.0f);
    numTextsAsked = 0;
    shortLived.reset();
    pumpPending();
    EXPECT_EQ (numTextsAsked, 0);
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -78.0f);
}

TEST_F (PluginSliderControlTest, TheNearestThumbIsRememberedAndTheMaximumWinsAtEqualDistance)
{
    auto& slider = two.getSlider();
    slider.setMinAndMaxValues (-100.0, -60.0, juce::dontSendNotification);
    EXPECT_EQ (slider.findNearestThumb (placeOf (-99.0)), 1);
    EXPECT_EQ (slider.findNearestThumb (placeOf (-61.0)), 2);
    EXPECT_EQ (slider.findNearestThumb ((placeOf (-100.0) + placeOf (-60.0)) * 0.5f), 2);
    EXPECT_EQ (one.getSlider().findNearestThumb ({ 3.0f, 3.0f }), 0);

    slider.setMinAndMaxValues (-80.0, -80.0, juce::dontSendNotification);
    EXPECT_EQ (slider.findNearestThumb (placeOf (-100.0)), 1) << "both thumbs at the same place";
    EXPECT_EQ (slider.findNearestThumb (placeOf (-60.0)), 2);

    ASSERT_TRUE (window->moveMouseTo (slider, placeOf (-110.0)));
    EXPECT_TRUE (pumpUntil ([&] { return slider.getThumbNearMouse() == 1; }));
    ASSERT_TRUE (window->moveMouseTo (slider, placeOf (-10.0)));
    EXPECT_TRUE (pumpUntil ([&] { return slider.getThumbNearMouse() == 2; }));
}

TEST_F (PluginSliderControlTest, IdsThatNameNoParameterGiveASliderThatDoesNothing)
{
    PluginSliderControl none { processor, juce::StringArray(), "x" };
    PluginSliderControl unknown { processor, "nothing", {} };
    PluginSliderControl half { processor, juce::StringArray { "nothing", "ceiling" }, {} };

    for (auto* control : { &none, &unknown, &half })
        control->setSize (100, 40);

    none.getSlider().setValue (1.0, juce::sendNotificationSync);
    unknown.getSlider().setValue (1.0, juce::sendNotificationSync);
    EXPECT_EQ (floor.take() + ceiling.take(), "");
}

} // namespace
} // namespace mk::pluginCore
