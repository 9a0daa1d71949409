// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/state/StateBlob.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/OnParameterChange.h"
#include "tests/support/TemporaryHome.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::orlo::test
{
namespace
{

class SessionTest : public testing::Test
{
protected:
    SessionTest() { processor.applyInitialSettings(); }

    [[nodiscard]] static std::unique_ptr<juce::XmlElement> getSession (TestProcessor& from)
    {
        juce::MemoryBlock blob;
        from.getStateInformation (blob);
        auto xml = pluginCore::readStateBlob (blob.getData(), int (blob.getSize()));
        EXPECT_NE (xml, nullptr);
        return xml;
    }

    [[nodiscard]] static juce::String toText (const juce::XmlElement& xml)
    {
        return xml.toString (juce::XmlElement::TextFormat().singleLine().withoutHeader());
    }

    /** Gives raw text to the processor as a session. */
    void restoreText (const char* text) { processor.restore (*juce::parseXML (text)); }

    TestProcessor processor;
    pluginCore::SessionState& state = processor.getSessionState();
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
};

TEST_F (SessionTest, AFreshInstanceWritesTheShortestDocument)
{
    EXPECT_EQ (
        toText (*getSession (processor)),
        "<TestPlugin1 version=\"4.5.6\" lockedParams=\"\"><PARAMS><PARAM id=\"floor\" value=\"-100.0\"/>"
        "<PARAM id=\"ceiling\" value=\"0.0\"/><PARAM id=\"skewed\" value=\"0.0\"/>"
        "<PARAM id=\"choice\" value=\"1.0\"/><PARAM id=\"flag\" value=\"0.0\"/></PARAMS><Settings/></TestPlugin1>");
}

TEST_F (SessionTest, TheChildrenAreInAFixedOrder)
{
    const auto file = processor.writePreset ("sub/a.mkpreset", {});
    ASSERT_TRUE (presets.loadPresetFile (file, nullptr));
    processor.setValue ("floor", -7.0f);
    state.pluginEditorWidth = 640;
    state.pluginEditorHeight = 480;
    state.setLockedParams ({ "floor", "ceiling" });
    state.getSettings().getTree().setProperty ("a", "b", nullptr);
    state.getData().getTree().appendChild (juce::ValueTree ("CHILD"), nullptr);

    auto xml = getSession (processor);
    xml->removeChildElement (xml->getChildByName ("PARAMS"), true);
    EXPECT_EQ (toText (*xml),
               "<TestPlugin1 version=\"4.5.6\" pluginEditorWidth=\"640\" pluginEditorHeight=\"480\" "
               "lockedParams=\"floor;ceiling\"><Settings a=\"b\"/>"
               "<lastPreset root=\"USER\" path=\"sub/a.mkpreset\" dirty=\"1\"/><Data><CHILD/></Data></TestPlugin1>");
}

TEST_F (SessionTest, APresetsDocumentHoldsNothingOfTheSession)
{
    ASSERT_TRUE (presets.loadPresetFile (processor.writePreset ("a.mkpreset", {}), nullptr));
    state.pluginEditorWidth = 640;
    state.pluginEditorHeight = 480;
    state.setLockedParams ({ "floor" });
    state.getSettings().getTree().setProperty ("a", "b", nullptr);

    const auto xml = processor.getStateXml (false);
    EXPECT_EQ (xml->getNumAttributes(), 1);
    EXPECT_TRUE (xml->hasAttribute ("version"));
    EXPECT_EQ (xml->getNumChildElements(), 1);
    EXPECT_NE (xml->getChildByName ("PARAMS"), nullptr);
}

TEST_F (SessionTest, ThePresetHeaderNamesCompanyAndVersion)
{
    EXPECT_EQ (toText (*processor.createPresetHeaderXml()), "<TestPlugin1 company=\"Somebody\" version=\"4.5.6\"/>");
}

TEST_F (SessionTest, EverythingComesBackInAnotherInstance)
{
    ASSERT_TRUE (presets.loadPresetFile (processor.writePreset ("a.mkpreset", {}), nullptr));
    processor.setValue ("floor", -7.5f);
    processor.setValue ("choice", 3.0f);
    state.pluginEditorWidth = 640;
    state.pluginEditorHeight = 480;
    state.setLockedParams ({ "flag", "ceiling" });
    state.getSettings().getTree().getOrCreateChildWithName ("VIEW", nullptr).setProperty ("x", 1, nullptr);
    state.getData().getTree().setProperty ("key", "value", nullptr);
    const auto session = getSession (processor);

    TestProcessor other;
    other.restore (*session);

    EXPECT_EQ (toText (*getSession (other)), toText (*session));
    EXPECT_EQ (other.getSessionState().getSettings().getTree().getChildWithName ("VIEW")["x"].toString(), "1");
    EXPECT_EQ (other.getPresetsManager().getCurrentPresetFile(),
               other.getPresetsManager().getUserFolder().getChildFile ("a.mkpreset"));
    EXPECT_TRUE (other.getPresetsManager().isDirty());
    EXPECT_EQ (other.getSessionState().getLockedParams(), (juce::StringArray { "flag", "ceiling" }));
}

TEST_F (SessionTest, AMissingSizeIsReadAsMinusOne)
{
    state.pluginEditorWidth = 640;
    state.pluginEditorHeight = 480;
    restoreText ("<TestPlugin1 pluginEditorHeight='300'/>");
    EXPECT_EQ (state.pluginEditorWidth, -1);
    EXPECT_EQ (state.pluginEditorHeight, 300);
    EXPECT_FALSE (getSession (processor)->hasAttribute ("pluginEditorWidth"));
}

TEST_F (SessionTest, WhatTheDocumentLacksIsLeftUnchanged)
{
    processor.setValue ("floor", -7.5f);
    state.getSettings().getTree().setProperty ("a", "b", nullptr);
    state.getData().getTree().setProperty ("c", "d", nullptr);
    const auto preset = processor.writePreset ("a.mkpreset", { { "floor", "-7.5" } });
    ASSERT_TRUE (presets.loadPresetFile (preset, nullptr));
    restoreText ("<TestPlugin1/>");
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -7.5f);
    EXPECT_EQ (state.getSettings().getTree()["a"].toString(), "b");
    EXPECT_EQ (state.getData().getTree()["c"].toString(), "d");
    EXPECT_EQ (presets.getCurrentPresetFile(), preset);
}

TEST_F (SessionTest, TheVersionIsIgnored)
{
    restoreText ("<TestPlugin1 version='99.9'><PARAMS><PARAM id='floor' value='-3'/></PARAMS></TestPlugin1>");
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -3.0f);
    EXPECT_EQ (getSession (processor)->getStringAttribute ("version"), "4.5.6");
}

TEST_F (SessionTest, LockedParametersStayThroughASession)
{
    state.setLockedParams ({ "floor", "ceiling" });
    processor.setValue ("floor", -50.0f);
    processor.setValue ("ceiling", -5.0f);
    restoreText ("<TestPlugin1 lockedParams='flag'><PARAMS><PARAM id='floor' value='-3'/>"
                 "<PARAM id='ceiling' value='-4'/><PARAM id='choice' value='3'/></PARAMS></TestPlugin1>");
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -50.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("ceiling"), -5.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 3.0f);
    EXPECT_EQ (state.getLockedParams(), juce::StringArray ("flag"));
}

TEST_F (SessionTest, AMissingListOfLockedParametersLocksNone)
{
    state.setLockedParams ({ "floor" });
    restoreText ("<TestPlugin1/>");
    EXPECT_TRUE (state.getLockedParams().isEmpty());
}

//==============================================================================
TEST_F (SessionTest, InvalidDataChangesNothingButCountsAsARestore)
{
    processor.setValue ("floor", -7.5f);
    state.setLockedParams ({ "flag" });
    state.pluginEditorWidth = 640;
    const auto before = toText (*getSession (processor));
    EXPECT_FALSE (processor.isStateRestored());

    for (const std::string& bytes : { std::string(), std::string ("12345678"), std::string (1000, '\xff') })
    {
        processor.setStateInformation (bytes.data(), int (bytes.size()));
        EXPECT_EQ (toText (*getSession (processor)), before);
        EXPECT_TRUE (processor.isStateRestored());
        EXPECT_FALSE (processor.isLoadingState());
        EXPECT_TRUE (state.getSessionStateCopy().isEmpty());
        EXPECT_EQ (state.getPresetStateCopy(), pluginCore::writeStateBlob (*processor.getStateXml (false)));
    }

    processor.runBlock();
    EXPECT_EQ (processor.numResets, 0);
}

TEST_F (SessionTest, AnotherProductsSessionSetsOnlyPresetAndLocks)
{
    processor.setValue ("floor", -7.5f);
    state.pluginEditorWidth = 640;
    restoreText ("<Other pluginEditorWidth='5' lockedParams='a;b'><PARAMS><PARAM id='floor' value='-1'/></PARAMS>"
                 "<Settings a='b'/><Data a='b'/><lastPreset root='USER' path='x.mkpreset' dirty='0'/></Other>");

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -7.5f);
    EXPECT_EQ (state.pluginEditorWidth, 640);
    EXPECT_EQ (state.getSettings().getTree().getNumProperties(), 0);
    EXPECT_EQ (state.getData().getTree().getNumProperties(), 0);
    EXPECT_EQ (state.getLockedParams(), (juce::StringArray { "a", "b" }));
    EXPECT_EQ (presets.getCurrentPresetFile(), presets.getUserFolder().getChildFile ("x.mkpreset"));
    EXPECT_FALSE (presets.isDirty());
    EXPECT_FALSE (processor.setStateFromXml (juce::XmlElement ("Other"), true));
}

TEST_F (SessionTest, ADeletedPresetIsStillReferredTo)
{
    restoreText ("<TestPlugin1><PARAMS><PARAM id='floor' value='-3'/></PARAMS>"
                 "<lastPreset root='DESIGNER' path='gone/x.mkpreset' dirty='1'/></TestPlugin1>");
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -3.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), presets.getDesignersFolder().getChildFile ("gone/x.mkpreset"));
    EXPECT_EQ (toText (*getSession (processor)->getChildByName ("lastPreset")),
               "<lastPreset root=\"DESIGNER\" path=\"gone/x.mkpreset\" dirty=\"1\"/>");
}

TEST_F (SessionTest, APresetOutsideTheFoldersIsNoCurrentPresetInTheRestoredSession)
{
    const TemporaryFolder outside;
    processor.setValue ("floor", -3.0f);
    presets.saveChosenFile (outside.get().getChildFile ("a.mkpreset"), false);
    const auto session = getSession (processor);
    EXPECT_EQ (toText (*session->getChildByName ("lastPreset")), "<lastPreset path=\"\" dirty=\"0\"/>");

    TestProcessor other;
    ASSERT_TRUE (other.getPresetsManager().loadPresetFile (other.writePreset ("b.mkpreset", {}), nullptr));
    other.restore (*session);
    EXPECT_EQ (other.getPresetsManager().getCurrentPresetFile(), juce::File());
    EXPECT_FLOAT_EQ (other.getValue ("floor"), -3.0f);
    EXPECT_EQ (getSession (other)->getChildByName ("lastPreset"), nullptr);
}

TEST_F (SessionTest, TheDirtyFlagIsReadByItsFirstCharacter)
{
    const auto restoreFlag = [this] (const char* attribute)
    {
        const auto text =
            juce::String ("<TestPlugin1><lastPreset root='USER' path='x.mkpreset' ") + attribute + "/></TestPlugin1>";
        restoreText (text.toRawUTF8());
        return presets.isDirty();
    };

    for (const auto* text : { "dirty='1'", "dirty='true'", "dirty='True'", "dirty='yes'", "dirty='Y'" })
        EXPECT_TRUE (restoreFlag (text)) << text;

    for (const auto* text : { "dirty='0'", "dirty='false'", "dirty='2'", "dirty=''", "dirty='on'", "" })
        EXPECT_FALSE (restoreFlag (text)) << text;
}

TEST_F (SessionTest, RestoringNotifiesTheListenersOfAChangedFlagAndOfTheLocks)
{
    struct Listener final : pluginCore::PresetsManager::Listener
    {
        void presetFileLoaded (pluginCore::PresetsManager&, const juce::File&) override { events.push_back ("loaded"); }
        void presetDirtyChanged (pluginCore::PresetsManager&, bool) override { events.push_back ("flag"); }
        void lockedParamsChanged (pluginCore::PresetsManager&) override { events.push_back ("locks"); }
        std::vector<juce::String> events;
    };

    Listener listener;
    presets.addListener (&listener);
    const auto* const text = "<TestPlugin1 lockedParams='flag'><PARAMS><PARAM id='floor' value='-3'/></PARAMS>"
                             "<lastPreset root='USER' path='x.mkpreset' dirty='1'/></TestPlugin1>";
    restoreText (text);
    EXPECT_EQ (listener.events, (std::vector<juce::String> { "flag", "locks" }));
    restoreText (text);
    EXPECT_EQ (listener.events, (std::vector<juce::String> { "flag", "locks", "locks" }));
    presets.removeListener (&listener);
}

TEST_F (SessionTest, TheLastRestoredStateIsKeptInBothForms)
{
    const auto session = processor.makeSession ({ { "floor", "-3" } });
    processor.restore (*session);
    EXPECT_EQ (state.getSessionStateCopy(), pluginCore::writeStateBlob (*session));
    EXPECT_EQ (state.getPresetStateCopy(), pluginCore::writeStateBlob (*processor.getStateXml (false)));
}

TEST_F (SessionTest, TheAudioThreadResetsOnce)
{
    processor.restore (*processor.makeSession ({}));
    processor.runBlock();
    processor.runBlock();
    EXPECT_EQ (processor.numResets, 1);
}

TEST_F (SessionTest, RestoringDoesNotMakeThePresetDirty)
{
    processor.restore (*processor.makeSession ({ { "floor", "-3" } }));
    EXPECT_FALSE (presets.isDirty());
    processor.setValue ("floor", -4.0f);
    EXPECT_TRUE (presets.isDirty());
}

TEST_F (SessionTest, ThePlugInReportsThatItIsLoadingOnlyWhileItRestores)
{
    std::vector<bool> answers;
    const OnParameterChange listener (processor.getParameter ("floor"),
                                      [&] { answers.push_back (processor.isLoadingState()); });
    processor.restore (*processor.makeSession ({ { "floor", "-3" } }));
    processor.setValue ("floor", -4.0f);
    EXPECT_EQ (answers, (std::vector<bool> { true, false }));
}

TEST_F (SessionTest, AnotherThreadReadsBackAtOnceWhatItHasRestored)
{
    const auto session = juce::parseXML (
        "<TestPlugin1 lockedParams='flag'><PARAMS><PARAM id='floor' value='-3'/></PARAMS><Settings a='b'/>"
        "<lastPreset root='USER' path='x.mkpreset' dirty='1'/><Data c='d'/></TestPlugin1>");
    juce::String text;

    std::thread (
        [&]
        {
            processor.restore (*session);
            text = toText (*getSession (processor));
        })
        .join();

    for (const auto* part : { "id=\"floor\" value=\"-3.0\"",
                              "<Settings a=\"b\"/>",
                              "lockedParams=\"flag\"",
                              "path=\"x.mkpreset\" dirty=\"1\"",
                              "<Data c=\"d\"/>" })
        EXPECT_TRUE (text.contains (part)) << part << " in " << text;

    pumpPending();
    EXPECT_EQ (toText (*getSession (processor)), text);
    EXPECT_EQ (state.getSettings().getTree()["a"].toString(), "b");
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

} // namespace
} // namespace mk::orlo::test
