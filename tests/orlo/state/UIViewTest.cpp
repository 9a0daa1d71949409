// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/state/UIView.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/state/StateBlob.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::orlo::test
{
namespace
{

class UIViewTest : public testing::Test
{
protected:
    /** Restores a session with the given settings in the processor. */
    void restore (const juce::String& settings)
    {
        const auto blob =
            pluginCore::writeStateBlob (*juce::parseXML ("<Orlo><Settings>" + settings + "</Settings></Orlo>"));
        processor.setStateInformation (blob.getData(), int (blob.getSize()));
    }

    [[nodiscard]] juce::String getSettingsText()
    {
        return processor.getStateXml (true)
            ->getChildByName ("Settings")
            ->toString (juce::XmlElement::TextFormat().singleLine().withoutHeader());
    }

    AudioPluginAudioProcessor processor;
    data::UIView& view = processor.getUIView();
};

TEST_F (UIViewTest, AFreshInstanceHasAnEmptyView)
{
    EXPECT_EQ (getSettingsText(), "<Settings><UIVIEW/></Settings>");
    EXPECT_FALSE (view.cleanViewMode.get());
    EXPECT_EQ (view.cleanBounds.get(), "");
    EXPECT_EQ (view.normalBounds.get(), "");
}

TEST_F (UIViewTest, ValuesThatTheWindowStoresAreInTheSession)
{
    view.cleanViewMode = true;
    view.cleanBounds = "0 0 1000 500";
    view.normalBounds = "0 0 1200 800";
    EXPECT_EQ (getSettingsText(),
               "<Settings><UIVIEW CLEAN_VIEW_MODE=\"1\" CLEAN_BOUNDS=\"0 0 1000 500\" "
               "NORMAL_BOUNDS=\"0 0 1200 800\"/></Settings>");
}

TEST_F (UIViewTest, ASessionSetsTheView)
{
    restore ("<UIVIEW CLEAN_VIEW_MODE='1' CLEAN_BOUNDS='0 0 10 20' NORMAL_BOUNDS='0 0 30 40'/>");
    EXPECT_TRUE (view.cleanViewMode.get());
    EXPECT_EQ (view.cleanBounds.get(), "0 0 10 20");
    EXPECT_EQ (view.normalBounds.get(), "0 0 30 40");

    // The view still writes to the session.
    view.cleanViewMode = false;
    EXPECT_TRUE (getSettingsText().contains ("CLEAN_VIEW_MODE=\"0\""));
}

TEST_F (UIViewTest, ASessionWithoutAViewClearsIt)
{
    view.cleanViewMode = true;
    restore ("<OTHER/>");
    EXPECT_FALSE (view.cleanViewMode.get());
    view.normalBounds = "0 0 30 40";
    EXPECT_EQ (getSettingsText(), "<Settings><OTHER/><UIVIEW NORMAL_BOUNDS=\"0 0 30 40\"/></Settings>");
}

TEST_F (UIViewTest, ASessionFromAnotherThreadSetsTheViewLater)
{
    view.normalBounds = "0 0 1 1";
    std::thread ([this] { restore ("<UIVIEW CLEAN_VIEW_MODE='1'/>"); }).join();
    EXPECT_TRUE (getSettingsText().contains ("CLEAN_VIEW_MODE=\"1\""));
    EXPECT_FALSE (view.cleanViewMode.get());

    pumpPending();
    EXPECT_TRUE (view.cleanViewMode.get());
    EXPECT_EQ (view.normalBounds.get(), "");
}

TEST_F (UIViewTest, AnyTextIsToleratedAsTheMode)
{
    for (const auto* text : { "", "0", "2", "-2147483648", "nan", "99999999999999999999" })
    {
        restore (juce::String ("<UIVIEW CLEAN_VIEW_MODE='") + text + "'/>");
        EXPECT_FALSE (view.cleanViewMode.get()) << text;
    }
}

TEST_F (UIViewTest, TheFirstOfTwoViewsCounts)
{
    restore ("<UIVIEW NORMAL_BOUNDS='0 0 1 1'/><UIVIEW NORMAL_BOUNDS='0 0 2 2'/>");
    EXPECT_EQ (view.normalBounds.get(), "0 0 1 1");
}

TEST_F (UIViewTest, APresetDoesNotChangeTheView)
{
    view.cleanViewMode = true;
    processor.setStateFromXml (*juce::parseXML ("<Orlo><Settings><UIVIEW/></Settings></Orlo>"), false);
    EXPECT_TRUE (view.cleanViewMode.get());
}

} // namespace
} // namespace mk::orlo::test
