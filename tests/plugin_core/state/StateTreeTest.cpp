// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/state/StateTree.h"

#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::pluginCore
{
namespace
{

[[nodiscard]] juce::XmlElement makeContent (const juce::String& colour)
{
    juce::XmlElement xml ("Settings");
    xml.setAttribute ("colour", colour);
    xml.createNewChildElement ("CHILD")->setAttribute ("colour", colour);
    return xml;
}

[[nodiscard]] juce::String toText (const StateTree& tree)
{
    return tree.createXml()->toString (juce::XmlElement::TextFormat().singleLine().withoutHeader());
}

TEST (StateTree, StartsEmptyWithItsType)
{
    const StateTree tree ("Settings");
    EXPECT_EQ (toText (tree), "<Settings/>");
}

TEST (StateTree, ChangesInTheTreeAreInTheDocument)
{
    const StateTree state ("Settings");
    auto tree = state.getTree();
    tree.setProperty ("a", 1, nullptr);
    juce::ValueTree child ("CHILD");
    tree.appendChild (child, nullptr);
    child.setProperty ("b", "x", nullptr);
    tree.appendChild (juce::ValueTree ("OTHER"), nullptr);
    tree.moveChild (1, 0, nullptr);

    EXPECT_EQ (toText (state), "<Settings a=\"1\"><OTHER/><CHILD b=\"x\"/></Settings>");

    tree.removeChild (child, nullptr);
    EXPECT_EQ (toText (state), "<Settings a=\"1\"><OTHER/></Settings>");
}

TEST (StateTree, AReplacementOnTheMessageThreadReachesTheTreeAtOnce)
{
    StateTree state ("Settings");
    const auto tree = state.getTree();
    auto numCalls = 0;
    state.onReplaced = [&numCalls] { ++numCalls; };
    state.getTree().getOrCreateChildWithName ("OLD", nullptr);

    state.replaceContent (makeContent ("red"));

    EXPECT_EQ (tree["colour"].toString(), "red");
    EXPECT_EQ (tree.getChildWithName ("CHILD")["colour"].toString(), "red");
    EXPECT_FALSE (tree.getChildWithName ("OLD").isValid());
    EXPECT_EQ (numCalls, 1);
}

TEST (StateTree, AReplacementFromAnotherThreadIsReadBackAtOnceAndReachesTheTreeLater)
{
    StateTree state ("Settings");
    const auto tree = state.getTree();
    juce::String readBack;

    std::thread (
        [&]
        {
            state.replaceContent (makeContent ("blue"));
            readBack = toText (state);
        })
        .join();

    EXPECT_EQ (readBack, "<Settings colour=\"blue\"><CHILD colour=\"blue\"/></Settings>");
    EXPECT_FALSE (tree.hasProperty ("colour"));

    orlo::test::pumpPending();
    EXPECT_EQ (tree["colour"].toString(), "blue");
    EXPECT_EQ (toText (state), readBack);
}

TEST (StateTree, APendingReplacementWinsOverChangesToTheOldTree)
{
    StateTree state ("Settings");
    auto tree = state.getTree();
    std::thread ([&] { state.replaceContent (makeContent ("blue")); }).join();

    tree.setProperty ("colour", "old", nullptr);
    EXPECT_TRUE (toText (state).contains ("blue"));

    orlo::test::pumpPending();
    EXPECT_EQ (tree["colour"].toString(), "blue");
}

TEST (StateTree, ANewerReplacementOnTheMessageThreadWinsOverAPendingOne)
{
    StateTree state ("Settings");
    std::thread ([&] { state.replaceContent (makeContent ("blue")); }).join();
    state.replaceContent (makeContent ("green"));
    orlo::test::pumpPending();
    EXPECT_EQ (state.getTree()["colour"].toString(), "green");
    EXPECT_TRUE (toText (state).contains ("green"));
}

TEST (StateTree, TextBetweenTheTagsIsLeftOut)
{
    StateTree state ("Settings");
    const auto xml = juce::parseXML ("<Settings a='1'>words<CHILD>more<SUB/></CHILD></Settings>");
    ASSERT_NE (xml, nullptr);
    state.replaceContent (*xml);
    EXPECT_EQ (toText (state), "<Settings a=\"1\"><CHILD><SUB/></CHILD></Settings>");
}

TEST (StateTree, ChangesMadeWhileTheReplacementReachesTheTreeAreKept)
{
    struct Repairer final : juce::ValueTree::Listener
    {
        void valueTreeChildAdded (juce::ValueTree& parent, juce::ValueTree& child) override
        {
            if (child.hasType ("CHILD"))
                parent.setProperty ("repaired", true, nullptr);
        }
    };

    StateTree state ("Settings");
    auto tree = state.getTree();
    Repairer repairer;
    tree.addListener (&repairer);
    state.replaceContent (makeContent ("red"));
    tree.removeListener (&repairer);
    EXPECT_TRUE (toText (state).contains ("repaired"));
}

TEST (StateTree, MayBeDeletedWhileAReplacementIsPending)
{
    auto called = false;

    {
        StateTree state ("Settings");
        state.onReplaced = [&called] { called = true; };
        std::thread ([&] { state.replaceContent (makeContent ("blue")); }).join();
    }

    orlo::test::pumpPending();
    EXPECT_FALSE (called);
}

} // namespace
} // namespace mk::pluginCore
