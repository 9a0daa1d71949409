// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/AudioPluginAudioProcessorEditor.h"

#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/FindComponents.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class AudioPluginAudioProcessorEditorTest : public testing::Test
{
protected:
    AudioPluginAudioProcessorEditorTest()
    {
        forgetSettings();
        processor.prepareToPlay (44100.0, 512);
    }

    ~AudioPluginAudioProcessorEditorTest() override
    {
        editor = nullptr;
        forgetSettings();
    }

    void forgetSettings() { settings.getSettings().removeAllProperties (nullptr); }

    /** Opens the editor as a host does, but not on a screen. */
    void open()
    {
        editor.reset (dynamic_cast<AudioPluginAudioProcessorEditor*> (processor.createEditorIfNeeded()));
        ASSERT_NE (editor, nullptr);
    }

    void switchToFullView()
    {
        processor.getUIView().cleanViewMode = true;
        pumpPending();
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
        pumpPending();
    }

    /** The picture size in pixels that was requested from the builder. */
    [[nodiscard]] juce::Rectangle<int> getPixels()
    {
        const auto size = processor.getImageBuilder().getRequestedSize();
        return { size.x, size.y };
    }

    AudioPluginAudioProcessor processor { createEditor };
    const pluginCore::PluginGlobalSettings settings;
    std::unique_ptr<AudioPluginAudioProcessorEditor> editor;
};

/** Whether a window paints the grip in its corner. */
[[nodiscard]] bool showsGrip (juce::Component& window)
{
    auto* const grip = findInside<juce::ResizableCornerComponent> (window);

    if (grip == nullptr)
        return false;

    juce::Image image (juce::Image::ARGB, grip->getWidth(), grip->getHeight(), true, juce::SoftwareImageType());
    juce::Graphics g (image);
    grip->paintEntireComponent (g, false);
    return ! findInk (image).isEmpty();
}

TEST_F (AudioPluginAudioProcessorEditorTest, FullViewHidesOnlyTheGripOfItsOwnWindow)
{
    open();
    AudioPluginAudioProcessor otherProcessor { createEditor };
    const std::unique_ptr<juce::AudioProcessorEditor> other (otherProcessor.createEditorIfNeeded());
    EXPECT_TRUE (showsGrip (*editor));
    EXPECT_TRUE (showsGrip (*other));

    switchToFullView();
    EXPECT_FALSE (showsGrip (*editor));
    EXPECT_TRUE (showsGrip (*other));
}

TEST_F (AudioPluginAudioProcessorEditorTest, ANewInstanceTakesTheLastSizeOfFullView)
{
    settings.getSettings().setProperty (pluginCore::SettingsIds::latestCleanViewBounds, "0 0 640 360", nullptr);
    open();
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { 1050, 578 })) << "this size is ignored in Standard View";

    switchToFullView();
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { 640, 360 }));
}

TEST_F (AudioPluginAudioProcessorEditorTest, AnInstanceWithAFullViewSizeOfItsOwnKeepsIt)
{
    settings.getSettings().setProperty (pluginCore::SettingsIds::latestCleanViewBounds, "0 0 640 360", nullptr);
    processor.getUIView().cleanBounds = "0 0 500 450";
    open();
    switchToFullView();
    EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { 500, 450 }));
}

TEST_F (AudioPluginAudioProcessorEditorTest, IncompleteBoundsGiveAtLeastTheMinimumSize)
{
    for (const auto& [bounds, width] :
         { std::pair { "0 0 640", 640 }, { "x", 100 }, { "0 0", 100 }, { "0 0 -9 -9", 100 }, { " ", 100 } })
    {
        SCOPED_TRACE (bounds);

        // The bounds are used by switching to Full View.
        processor.getUIView().cleanViewMode = false;
        processor.getUIView().normalBounds = "0 0 909 500";
        processor.getUIView().cleanBounds = bounds;
        open();
        switchToFullView();
        EXPECT_EQ (editor->getLocalBounds(), (juce::Rectangle { width, 100 }));
        editor = nullptr;

        // The bounds are used by opening the editor in either view.
        for (const auto isFull : { true, false })
        {
            processor.getUIView().cleanViewMode = isFull;
            (isFull ? processor.getUIView().cleanBounds : processor.getUIView().normalBounds) = bounds;
            open();
            EXPECT_GE (editor->getWidth(), 100) << isFull;
            EXPECT_GE (editor->getHeight(), 100) << isFull;
            editor = nullptr;
        }
    }
}

//==============================================================================
TEST_F (AudioPluginAudioProcessorEditorTest, DoublesTheResolutionOnADenseDisplayIfWanted)
{
    open();
    auto& picture = editor->getMainComponent().getSpectrogramContainer().getSpectrogram();
    const auto single = picture.getLocalBounds();
    const juce::Rectangle<int> twice { 2 * single.getWidth(), 2 * single.getHeight() };

    for (const auto& [isWanted, isDense] :
         { std::pair { false, false }, { false, true }, { true, true }, { true, false }, { false, true } })
    {
        SCOPED_TRACE (juce::String (int (isWanted)) + " " + juce::String (int (isDense)));
        set (Params::id::hiDPI, isWanted ? 1.0f : 0.0f);
        editor->retinaStateChanged (editor->getMoveDetector(), isDense);
        EXPECT_EQ (picture.isDoubleResolution(), isWanted && isDense);
        EXPECT_EQ (getPixels(), isWanted && isDense ? twice : single);
    }

    // On a dense display the parameter alone does it too.
    set (Params::id::hiDPI, 1.0f);
    EXPECT_EQ (getPixels(), twice);
    set (Params::id::hiDPI, 0.0f);
    EXPECT_EQ (getPixels(), single);
}

TEST_F (AudioPluginAudioProcessorEditorTest, AnUnknownColourMapSelectsTheFirst)
{
    open();
    const auto getMap = [this] { return int (processor.getImageBuilder().getColourMap()->getMapIndex()); };

    for (const auto value : { 46.0f, 47.0f, 127.0f })
    {
        set (Params::id::colourMap, 45.0f);
        ASSERT_EQ (getMap(), 45);
        set (Params::id::colourMap, value);
        EXPECT_EQ (getMap(), 0) << value;
    }
}

} // namespace
} // namespace mk::orlo::test
