// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/attachments/TabAttachment.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::pluginCore
{
namespace
{

class TabAttachmentTest : public ::testing::Test
{
protected:
    TabAttachmentTest()
    {
        // The parameter has a fourth value that has no button.
        for (const auto* const text : { "A", "B", "C" })
        {
            auto* const button = buttons.add (std::make_unique<juce::TextButton> (text));
            group.addAndMakeVisible (button);
            button->setRadioGroupId (1);
            button->setClickingTogglesState (true);
        }

        makeAttachment();
    }

    void makeAttachment()
    {
        juce::Array<juce::Button*> inOrder;

        for (auto* button : buttons)
            inOrder.add (button);

        attachment = std::make_unique<TabAttachment> (processor.getParameter ("choice"),
                                                      inOrder,
                                                      &processor.getUndoManager(),
                                                      [this] { processor.getParameterState().copyState(); });
    }

    /** The texts of the lit buttons. */
    [[nodiscard]] juce::String lit() const
    {
        juce::String texts;

        for (const auto* button : buttons)
            if (button->getToggleState())
                texts += button->getButtonText();

        return texts;
    }

    void click (int index) { buttons[index]->setToggleState (true, juce::sendNotificationSync); }

    orlo::test::TestProcessor processor;
    juce::Component group;
    juce::OwnedArray<juce::TextButton> buttons;
    std::unique_ptr<TabAttachment> attachment;
    orlo::test::GestureRecorder heard { processor.getParameter ("choice") };
};

TEST_F (TabAttachmentTest, TheButtonOfTheInitialValueStartsLit) { EXPECT_EQ (lit(), "B"); }

TEST_F (TabAttachmentTest, AClickIsOneCompleteGesture)
{
    click (2);
    EXPECT_EQ (lit(), "C");
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 2.0f);
    EXPECT_EQ (heard.take(), "[.]");
}

TEST_F (TabAttachmentTest, AClickOnTheLitButtonSendsNothing)
{
    attachment->buttonClicked (buttons[1]);
    EXPECT_EQ (heard.take(), "");
}

TEST_F (TabAttachmentTest, EachClickIsOneTransaction)
{
    click (2);
    click (0);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (lit(), "C");
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (lit(), "B");
}

TEST_F (TabAttachmentTest, AValueWithoutAButtonDoesNothing)
{
    processor.setValue ("choice", 3.0f);
    EXPECT_EQ (lit(), "B");
    attachment->parameterChangedCallback (-1.0f);
    EXPECT_EQ (lit(), "B");
    EXPECT_EQ (heard.take(), ".");
}

TEST_F (TabAttachmentTest, ADeletedButtonIsSkipped)
{
    buttons.remove (2);
    processor.setValue ("choice", 2.0f);
    EXPECT_EQ (lit(), "B");
    click (0);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 0.0f);
}

TEST_F (TabAttachmentTest, AButtonThatIsNotAttachedIsIgnored)
{
    juce::TextButton other ("D");
    other.setToggleState (true, juce::dontSendNotification);
    attachment->buttonClicked (&other);
    EXPECT_EQ (heard.take(), "");
}

TEST_F (TabAttachmentTest, AValueSetByAnotherThreadLightsTheButton)
{
    std::thread ([this] { processor.setValue ("choice", 0.0f); }).join();
    EXPECT_EQ (lit(), "B");
    EXPECT_TRUE (orlo::test::pumpUntil ([this] { return lit() == "A"; }));
}

TEST_F (TabAttachmentTest, NothingIsDeliveredAfterItsDestruction)
{
    std::thread ([this] { processor.setValue ("choice", 0.0f); }).join();
    attachment.reset();
    orlo::test::pumpPending();
    EXPECT_EQ (lit(), "B");
    click (2);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 0.0f);
}

} // namespace
} // namespace mk::pluginCore
