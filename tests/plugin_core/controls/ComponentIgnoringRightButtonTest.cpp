// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Mouse.h"

#include <gmock/gmock.h>

namespace mk::pluginCore
{
namespace
{
using orlo::test::makeMouseEvent;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Modifiers = juce::ModifierKeys;

constexpr int left = Modifiers::leftButtonModifier;
constexpr int right = Modifiers::rightButtonModifier;
constexpr int middle = Modifiers::middleButtonModifier;
constexpr int ctrl = Modifiers::ctrlModifier;
constexpr int alt = Modifiers::altModifier;
constexpr int command = Modifiers::commandModifier;

struct Recorder : public juce::Component
{
    void mouseDown (const juce::MouseEvent&) override { calls.push_back ("down"); }
    void mouseDrag (const juce::MouseEvent&) override { calls.push_back ("drag"); }
    void mouseUp (const juce::MouseEvent&) override { calls.push_back ("up"); }
    void mouseDoubleClick (const juce::MouseEvent&) override { calls.push_back ("double"); }

    std::vector<std::string> calls;
};

class ComponentIgnoringRightButtonTest : public ::testing::Test
{
protected:
    [[nodiscard]] juce::MouseEvent event (int modifiers)
    {
        return makeMouseEvent (recorder, { 5.0f, 5.0f }, Modifiers (modifiers));
    }

    void clickTwice (int modifiers)
    {
        recorder.mouseDown (event (modifiers));
        recorder.mouseDrag (event (modifiers));
        recorder.mouseDoubleClick (event (modifiers));
        recorder.mouseUp (event (modifiers));
    }

    ComponentIgnoringRightButton<Recorder> recorder;
};

TEST_F (ComponentIgnoringRightButtonTest, TheLeftButtonReachesTheWidget)
{
    clickTwice (left);
    EXPECT_THAT (recorder.calls, ElementsAre ("down", "drag", "double", "up"));
}

TEST_F (ComponentIgnoringRightButtonTest, ShiftAndAltClicksReachTheWidget)
{
    clickTwice (left | Modifiers::shiftModifier | alt);
    EXPECT_THAT (recorder.calls, ElementsAre ("down", "drag", "double", "up"));
}

TEST_F (ComponentIgnoringRightButtonTest, NeitherOtherButtonsNorCtrlReachTheWidget)
{
    for (const auto modifiers :
         { right, middle, left | right, left | middle, left | ctrl, right | ctrl, left | ctrl | alt | command })
        clickTwice (modifiers);

    EXPECT_THAT (recorder.calls, IsEmpty());
}

TEST_F (ComponentIgnoringRightButtonTest, CtrlPressedDuringADragPausesItButTheReleaseStillArrives)
{
    recorder.mouseDown (event (left));
    recorder.mouseDrag (event (left | ctrl));
    recorder.mouseUp (event (left | ctrl));
    EXPECT_THAT (recorder.calls, ElementsAre ("down", "up"));
}

TEST_F (ComponentIgnoringRightButtonTest, CtrlReleasedDuringAnIgnoredPressStartsNothing)
{
    recorder.mouseDown (event (left | ctrl));
    recorder.mouseDrag (event (left));
    recorder.mouseUp (event (left));
    EXPECT_THAT (recorder.calls, IsEmpty());
}

TEST_F (ComponentIgnoringRightButtonTest, AnIgnoredPressDoesNotHoldBackTheNextOne)
{
    clickTwice (right);
    clickTwice (left);
    EXPECT_THAT (recorder.calls, ElementsAre ("down", "drag", "double", "up"));
}

TEST_F (ComponentIgnoringRightButtonTest, ARightClickDoesNotOpenAMenu)
{
    struct Box : public juce::ComboBox
    {
        void showPopup() override { ++numPopups; }
        int numPopups = 0;
    };

    ComponentIgnoringRightButton<Box> box;
    box.setSize (100, 20);
    box.addItem ("A", 1);

    for (const auto modifiers : { right, left | ctrl, left })
    {
        const auto click = makeMouseEvent (box, { 5.0f, 5.0f }, Modifiers (modifiers));
        box.mouseDown (click);
        box.mouseUp (click);
        orlo::test::pumpPending();
        EXPECT_EQ (box.numPopups, modifiers == left ? 1 : 0);
        box.hidePopup();
    }
}

TEST_F (ComponentIgnoringRightButtonTest, TheWidgetsOfTheProductCanBeMade)
{
    const ComponentIgnoringRightButton<juce::TextButton> textButton ("text");
    const ComponentIgnoringRightButton<juce::DrawableButton> drawableButton ("image",
                                                                             juce::DrawableButton::ImageFitted);
    const ComponentIgnoringRightButton<juce::Slider> slider;
    EXPECT_EQ (textButton.getButtonText(), "text");
    EXPECT_EQ (drawableButton.getName(), "image");
}

} // namespace
} // namespace mk::pluginCore
