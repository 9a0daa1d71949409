// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/state/ParameterStore.h"

#include "tests/support/GestureRecorder.h"
#include "tests/support/OnParameterChange.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

namespace mk::orlo::test
{
namespace
{

class ParameterStoreTest : public testing::Test
{
protected:
    /** Applies a document with the given text as the value of one parameter. */
    [[nodiscard]] float apply (const char* id, const char* text)
    {
        store.apply (*processor.makeSession ({ { id, text } })->getChildByName ("PARAMS"), {});
        return processor.getValue (id);
    }

    TestProcessor processor;
    pluginCore::ParameterStore store { processor.getParameterState() };
};

TEST_F (ParameterStoreTest, TheDocumentHoldsEveryParameterInTheOrderOfTheLayout)
{
    processor.setValue ("floor", -60.0f);
    processor.setValue ("choice", 3.0f);
    const auto xml = store.createXml();

    EXPECT_EQ (xml->toString (juce::XmlElement::TextFormat().singleLine().withoutHeader()),
               "<PARAMS><PARAM id=\"floor\" value=\"-60.0\"/><PARAM id=\"ceiling\" value=\"0.0\"/>"
               "<PARAM id=\"skewed\" value=\"0.0\"/><PARAM id=\"choice\" value=\"3.0\"/>"
               "<PARAM id=\"flag\" value=\"0.0\"/></PARAMS>");
}

TEST_F (ParameterStoreTest, TheDocumentEqualsThatOfTheParameterState)
{
    processor.setValue ("skewed", 3.1f);
    processor.setValue ("floor", -61.7f);
    const auto ours = store.createXml();
    const auto theirs = processor.getParameterState().copyState().createXml();

    ASSERT_EQ (ours->getNumChildElements(), theirs->getNumChildElements());
    EXPECT_EQ (ours->getTagName(), theirs->getTagName());

    for (const auto* child : theirs->getChildIterator())
    {
        const auto* const same = ours->getChildByAttribute ("id", child->getStringAttribute ("id"));
        ASSERT_NE (same, nullptr);
        EXPECT_TRUE (same->isEquivalentTo (child, false)) << child->toString();
    }
}

TEST_F (ParameterStoreTest, EveryValueIsRestored)
{
    processor.setValue ("floor", -33.3f);
    processor.setValue ("ceiling", -12.5f);
    processor.setValue ("skewed", 0.75f);
    processor.setValue ("choice", 2.0f);
    processor.setValue ("flag", 1.0f);
    const auto xml = store.createXml();

    TestProcessor other;
    pluginCore::ParameterStore (other.getParameterState()).apply (*xml, {});

    for (const auto* id : { "floor", "ceiling", "skewed", "choice", "flag" })
        EXPECT_NEAR (other.getValue (id), processor.getValue (id), 1e-4f) << id;
}

TEST_F (ParameterStoreTest, AParameterThatTheDocumentLacksGetsItsDefault)
{
    processor.setValue ("floor", -20.0f);
    processor.setValue ("choice", 3.0f);
    EXPECT_FLOAT_EQ (apply ("ceiling", "-5"), -5.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 1.0f);
}

TEST_F (ParameterStoreTest, AValueThatIsNoFiniteNumberCountsAsMissing)
{
    for (const auto* text : { "nan", "-nan", "inf", "-inf", "1e999", "", "loud", "12dB", "true", "base64:AAAA" })
    {
        processor.setValue ("floor", -20.0f);
        EXPECT_FLOAT_EQ (apply ("floor", text), -100.0f) << text;
    }
}

TEST_F (ParameterStoreTest, AValueBeyondTheRangeIsClamped)
{
    EXPECT_FLOAT_EQ (apply ("floor", "12"), 0.0f);
    EXPECT_FLOAT_EQ (apply ("floor", "-1e300"), -140.0f);
    EXPECT_FLOAT_EQ (apply ("skewed", "1e30"), 100.0f);
    EXPECT_FLOAT_EQ (apply ("choice", "17"), 3.0f);
    EXPECT_FLOAT_EQ (apply ("choice", "-17"), 0.0f);
    EXPECT_FLOAT_EQ (apply ("flag", "2"), 1.0f);
}

TEST_F (ParameterStoreTest, AFractionOfAChoiceIsRounded)
{
    EXPECT_FLOAT_EQ (apply ("choice", "1.6"), 2.0f);
    EXPECT_FLOAT_EQ (apply ("flag", "0.7"), 1.0f);
}

TEST_F (ParameterStoreTest, UnknownEntriesAreIgnoredAndNotKept)
{
    store.apply (*juce::parseXML ("<PARAMS x='1'>text<PARAM id='who' value='3'/><PARAM/><OTHER id='floor' value='-1'/>"
                                  "<PARAM id='floor' value='-7'><PARAM id='ceiling' value='-9'/></PARAM></PARAMS>"),
                 {});
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -7.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), 0.0f);
    EXPECT_EQ (store.createXml()->getNumChildElements(), 5);
}

TEST_F (ParameterStoreTest, TheLastOfTwoEntriesOfOneParameterCounts)
{
    store.apply (*processor.makeSession ({ { "floor", "-7" }, { "floor", "-8" } })->getChildByName ("PARAMS"), {});
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -8.0f);
}

//==============================================================================
TEST_F (ParameterStoreTest, ALockedParameterKeepsItsValueAndReportsItInAGesture)
{
    processor.setValue ("floor", -70.0f);
    GestureRecorder floor (processor.getParameter ("floor"));
    GestureRecorder ceiling (processor.getParameter ("ceiling"));

    store.apply (*processor.makeSession ({ { "floor", "-7" }, { "ceiling", "-70" } })->getChildByName ("PARAMS"),
                 { "unknown", "floor" });

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -70.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), -70.0f);
    EXPECT_EQ (floor.take(), "[.]");
    EXPECT_EQ (ceiling.take(), ".");
}

TEST_F (ParameterStoreTest, LockedParametersReportInTheOrderOfTheirList)
{
    struct Speakers final : juce::AudioProcessorParameter::Listener
    {
        void parameterValueChanged (int, float) override {}

        void parameterGestureChanged (int index, bool starts) override
        {
            if (starts)
                indices.push_back (index);
        }

        std::vector<int> indices;
    };

    Speakers speakers;

    for (auto* const parameter : processor.getParameters())
        parameter->addListener (&speakers);

    store.apply (juce::XmlElement ("PARAMS"), { "flag", "floor", "choice" });

    for (auto* const parameter : processor.getParameters())
        parameter->removeListener (&speakers);

    EXPECT_EQ (speakers.indices, (std::vector<int> { 4, 0, 3 }));
}

TEST_F (ParameterStoreTest, AParameterThatDoesNotMoveIsNotSetAgain)
{
    processor.setValue ("floor", -70.0f);
    GestureRecorder floor (processor.getParameter ("floor"));
    EXPECT_FLOAT_EQ (apply ("floor", "-70"), -70.0f);
    EXPECT_EQ (floor.take(), "");
}

//==============================================================================
TEST_F (ParameterStoreTest, WhileValuesAreBeingSetTheDocumentHoldsAllOfThem)
{
    juce::String seen;
    const OnParameterChange listener (processor.getParameter ("floor"), [&] { seen = store.createXml()->toString(); });

    store.apply (*processor.makeSession ({ { "floor", "-7" }, { "flag", "1" } })->getChildByName ("PARAMS"), {});

    EXPECT_TRUE (seen.contains ("id=\"floor\" value=\"-7.0\"")) << seen;
    EXPECT_TRUE (seen.contains ("id=\"flag\" value=\"1.0\"")) << seen;
}

TEST_F (ParameterStoreTest, ValuesThatArriveMeanwhileWinAsAWhole)
{
    auto newer = processor.makeSession ({ { "floor", "-80" }, { "ceiling", "-40" }, { "flag", "1" } });
    const OnParameterChange listener (processor.getParameter ("floor"),
                                      [&]
                                      {
                                          if (const auto once = std::move (newer))
                                              store.apply (*once->getChildByName ("PARAMS"), {});
                                      });

    store.apply (*processor.makeSession ({ { "floor", "-7" }, { "ceiling", "-6" } })->getChildByName ("PARAMS"), {});

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -80.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), -40.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 1.0f);
}

TEST_F (ParameterStoreTest, UpdatingTheTreeLeavesNothingToUndo)
{
    auto& state = processor.getParameterState();
    state.copyState();
    processor.setValue ("floor", -7.0f);
    store.updateTree();
    state.copyState();

    EXPECT_FALSE (processor.getUndoManager().canUndo());
    EXPECT_FLOAT_EQ (float (state.state.getChildWithProperty ("id", "floor")["value"]), -7.0f);
}

TEST_F (ParameterStoreTest, UpdatingTheTreeMovesNoParameterBack)
{
    std::atomic<int> numMovedBack { 0 };
    std::atomic<bool> isDone { false };

    std::thread host (
        [&]
        {
            for (int i = 0; i < 100000; ++i)
            {
                const auto value = -float (i % 100);
                processor.setValue ("floor", value);
                numMovedBack += std::abs (processor.getValue ("floor") - value) < 0.01f ? 0 : 1;
            }

            isDone.store (true);
        });

    while (! isDone.load())
        store.updateTree();

    host.join();
    EXPECT_EQ (numMovedBack, 0);

    store.updateTree();
    const auto tree = processor.getParameterState().state.getChildWithProperty ("id", "floor");
    EXPECT_FLOAT_EQ (float (tree["value"]), -99.0f);
}

} // namespace
} // namespace mk::orlo::test
