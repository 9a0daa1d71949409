// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/attachments/ComboBoxAttachment.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::pluginCore
{
namespace
{
using orlo::test::pumpUntil;

class ComboBoxAttachmentTest : public ::testing::Test
{
protected:
    ComboBoxAttachmentTest()
    {
        // One entry fewer than the parameter has values, as when some are reserved.
        box.addItemList ({ "A", "B", "C" }, 1);
        box.getRootMenu()->addSeparator();
        box.getRootMenu()->addSectionHeader ("heading");
        attachment = std::make_unique<ComboBoxAttachment> (processor.getParameter ("choice"), box, nullptr);
    }

    orlo::test::TestProcessor processor;
    juce::ComboBox box;
    std::unique_ptr<ComboBoxAttachment> attachment;
    orlo::test::GestureRecorder heard { processor.getParameter ("choice") };
};

TEST_F (ComboBoxAttachmentTest, TheBoxStartsWithTheValue) { EXPECT_EQ (box.getSelectedId(), 2); }

TEST_F (ComboBoxAttachmentTest, AValueBelowTheEntriesSelectsTheFirstAndOneAboveThemTheLast)
{
    attachment->parameterChangedCallback (-1.0f);
    EXPECT_EQ (box.getSelectedId(), 1);
    attachment->parameterChangedCallback (3.0f);
    EXPECT_EQ (box.getSelectedId(), 3);
    attachment->parameterChangedCallback (1000.0f);
    EXPECT_EQ (box.getSelectedId(), 3);
    EXPECT_EQ (heard.take(), "");
}

TEST_F (ComboBoxAttachmentTest, AValueWithoutAnEntryIsNotWrittenBack)
{
    processor.setValue ("choice", 3.0f);
    orlo::test::pumpPending();
    EXPECT_EQ (box.getSelectedId(), 3);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 3.0f);
    EXPECT_EQ (heard.take(), ".");
}

TEST_F (ComboBoxAttachmentTest, AChoiceIsOneCompleteGesture)
{
    box.setSelectedId (3, juce::sendNotificationSync);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 2.0f);
    EXPECT_EQ (heard.take(), "[.]");
}

TEST_F (ComboBoxAttachmentTest, SelectingTheSameEntryAgainSendsNothing)
{
    box.setSelectedId (2, juce::sendNotificationSync);
    attachment->comboBoxChanged (&box);
    EXPECT_EQ (heard.take(), "");
}

TEST_F (ComboBoxAttachmentTest, SelectingNoEntrySendsNothing)
{
    box.setSelectedId (0, juce::sendNotificationSync);
    EXPECT_EQ (heard.take(), "");
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 1.0f);
}

TEST_F (ComboBoxAttachmentTest, EachChoiceIsOneTransaction)
{
    attachment.reset();
    attachment = std::make_unique<ComboBoxAttachment> (processor.getParameter ("choice"),
                                                       box,
                                                       &processor.getUndoManager(),
                                                       [this] { processor.getParameterState().copyState(); });
    box.setSelectedId (3, juce::sendNotificationSync);
    box.setSelectedId (1, juce::sendNotificationSync);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (box.getSelectedId(), 3);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (box.getSelectedId(), 2);
}

TEST_F (ComboBoxAttachmentTest, AValueSetByAnotherThreadReachesTheBoxAndItsListeners)
{
    auto numChanges = 0;
    box.onChange = [&numChanges] { ++numChanges; };
    std::thread ([this] { processor.setValue ("choice", 0.0f); }).join();
    EXPECT_EQ (box.getSelectedId(), 2);
    EXPECT_TRUE (pumpUntil ([this] { return box.getSelectedId() == 1; }));
    EXPECT_EQ (numChanges, 1);
}

TEST_F (ComboBoxAttachmentTest, NothingIsDeliveredAfterItsDestruction)
{
    std::thread ([this] { processor.setValue ("choice", 0.0f); }).join();
    attachment.reset();
    orlo::test::pumpPending();
    EXPECT_EQ (box.getSelectedId(), 2);
    box.setSelectedId (3, juce::sendNotificationSync);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 0.0f);
}

} // namespace
} // namespace mk::pluginCore
