// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/attachments/ParameterAttachment.h"

#include "tests/support/GestureRecorder.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace mk::pluginCore
{
namespace
{

using orlo::test::GestureRecorder;
using orlo::test::pumpUntil;
using orlo::test::TestProcessor;

class ParameterAttachmentTest : public testing::Test
{
protected:
    void setElsewhere (float value)
    {
        std::thread ([this, value] { parameter.setValueNotifyingHost (parameter.convertTo0to1 (value)); }).join();
    }

    void expectValues (const std::vector<float>& expected)
    {
        ASSERT_EQ (values.size(), expected.size());

        for (size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR (values[i], expected[i], 1.0e-3f);
    }

    TestProcessor processor;
    juce::RangedAudioParameter& parameter = processor.getParameter ("floor");
    std::vector<float> values;
    std::unique_ptr<ParameterAttachment> attachment =
        std::make_unique<ParameterAttachment> (parameter, [this] (float value) { values.push_back (value); });
};

TEST_F (ParameterAttachmentTest, AValueSetOnTheMessageThreadIsDeliveredAtOnce)
{
    parameter.setValueNotifyingHost (parameter.convertTo0to1 (-50.0f));
    expectValues ({ -50.0f });
}

TEST_F (ParameterAttachmentTest, OnlyTheLastOfSeveralValuesFromAnotherThreadIsDelivered)
{
    for (const auto value : { -60.0f, -70.0f, -80.0f })
        setElsewhere (value);

    EXPECT_TRUE (values.empty());
    EXPECT_TRUE (pumpUntil ([this] { return ! values.empty(); }));
    expectValues ({ -80.0f });
}

TEST_F (ParameterAttachmentTest, EveryValueIsDeliveredOnce)
{
    const juce::SharedResourcePointer<AttachmentPoller> poller;
    setElsewhere (-60.0f);
    poller->deliverNow();
    poller->deliverNow();
    expectValues ({ -60.0f });
    setElsewhere (-70.0f);
    poller->deliverNow();
    expectValues ({ -60.0f, -70.0f });
}

TEST_F (ParameterAttachmentTest, AValueSetOnTheMessageThreadReplacesAPendingOne)
{
    setElsewhere (-60.0f);
    parameter.setValueNotifyingHost (parameter.convertTo0to1 (-50.0f));
    juce::SharedResourcePointer<AttachmentPoller>()->deliverNow();
    expectValues ({ -50.0f });
}

TEST_F (ParameterAttachmentTest, NothingIsDeliveredOnceItIsDestroyed)
{
    setElsewhere (-60.0f);
    attachment = nullptr;
    juce::SharedResourcePointer<AttachmentPoller>()->deliverNow();
    EXPECT_TRUE (values.empty());
}

TEST_F (ParameterAttachmentTest, ACallbackMayDestroyTheAttachment)
{
    ParameterAttachment second (parameter, [this] (float) { attachment = nullptr; });
    setElsewhere (-60.0f);
    juce::SharedResourcePointer<AttachmentPoller>()->deliverNow();
    EXPECT_EQ (attachment, nullptr);
    EXPECT_LE (values.size(), 1u);
}

TEST_F (ParameterAttachmentTest, TheInitialUpdateSendsTheCurrentValue)
{
    attachment->sendInitialUpdate();
    expectValues ({ parameter.convertFrom0to1 (parameter.getValue()) });
}

TEST_F (ParameterAttachmentTest, ACompleteGestureHasStartAndEndAndAnEqualValueSendsNothing)
{
    GestureRecorder recorder (parameter);
    attachment->setValueAsCompleteGesture (-42.0f);
    attachment->setValueAsCompleteGesture (-42.0f);
    EXPECT_EQ (recorder.take(), "[.]");
}

} // namespace
} // namespace mk::pluginCore
