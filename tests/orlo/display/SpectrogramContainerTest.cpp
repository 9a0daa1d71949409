// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/SpectrogramContainer.h"

#include "orlo/display/ContextMenu.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/GestureCounter.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class SpectrogramContainerTest : public testing::Test
{
protected:
    SpectrogramContainerTest()
    {
        processor.prepareToPlay (44100.0, 512);
        container = std::make_unique<SpectrogramContainer> (
            processor, processor.getFftProcessor(), processor.getImageBuilder());
        container->setSize (800, 400);
        container->openPage = [this] (const juce::URL& url) { openedPages.add (url.toString (true)); };
    }

    ~SpectrogramContainerTest() override { settings.getSettings().removeAllProperties (nullptr); }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
        pumpPending();
    }

    [[nodiscard]] float get (const char* id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    AudioPluginAudioProcessor processor;
    const pluginCore::PluginGlobalSettings settings;
    std::unique_ptr<SpectrogramContainer> container;
    juce::StringArray openedPages;
};

TEST_F (SpectrogramContainerTest, TheStripsFollowTheirParametersAtOnce)
{
    set (Params::id::ruler, 0.0f);
    set (Params::id::keyboard, 0.0f);
    EXPECT_EQ (container->getSpectrogram().getWidth(), 800);

    // The text size is 25 pixels, so a strip is 50 wide.
    set (Params::id::ruler, 1.0f);
    EXPECT_TRUE (container->getRuler().isVisible());
    EXPECT_EQ (container->getRuler().getBounds(), (juce::Rectangle { 750, 0, 50, 400 }));
    EXPECT_EQ (container->getSpectrogram().getWidth(), 750);

    set (Params::id::keyboard, 1.0f);
    EXPECT_EQ (container->getKeyboard().getBounds(), (juce::Rectangle { 700, 0, 50, 400 }));

    set (Params::id::ruler, 0.0f);
    EXPECT_FALSE (container->getRuler().isVisible());
    EXPECT_EQ (container->getKeyboard().getX(), 750);
    EXPECT_EQ (container->getSpectrogram().getWidth(), 750);
    EXPECT_EQ (container->getHelpLine().getWidth(), 750);
}

TEST_F (SpectrogramContainerTest, ThePictureKeepsItsSizeInAWindowNarrowerThanItsStrips)
{
    set (Params::id::ruler, 1.0f);
    set (Params::id::keyboard, 1.0f);
    const auto& builder = processor.getImageBuilder();
    ASSERT_EQ (builder.getRequestedSize(), juce::Point (700, 400));

    container->setSize (80, 300);
    EXPECT_EQ (container->getRuler().getBounds(), (juce::Rectangle { 30, 0, 50, 300 }));
    EXPECT_EQ (container->getKeyboard().getBounds(), (juce::Rectangle { 0, 0, 30, 300 }));
    EXPECT_EQ (container->getSpectrogram().getWidth(), 0);
    EXPECT_EQ (builder.getRequestedSize(), juce::Point (700, 400));
}

TEST_F (SpectrogramContainerTest, TheScaleFollowsTheParametersAndTheSampleRate)
{
    auto& scale = container->getFrequencyScale();
    set (Params::id::minFreq, 10.0f);
    set (Params::id::maxFreq, 50.0f);
    set (Params::id::freqScale, 2.0f);
    EXPECT_EQ (scale.getScaleType(), FrequencyScale::mel);
    EXPECT_NEAR (scale.getMinFrequency(), 2205.0f, 0.1f);
    EXPECT_NEAR (scale.getMaxFrequency(), 11025.0f, 0.1f);

    double reported = 0.0;
    container->onSampleRateChanged = [&] (double rate) { reported = rate; };
    processor.prepareToPlay (96000.0, 512);
    ASSERT_TRUE (pumpUntil ([&] { return reported > 0.0; }));
    EXPECT_EQ (reported, 96000.0);
    EXPECT_NEAR (scale.getMaxFrequency(), 24000.0f, 0.1f);

    // If the limits are crossed, the range is empty, never negative.
    set (Params::id::minFreq, 60.0f);
    EXPECT_GE (scale.getMaxFrequency(), scale.getMinFrequency());
}

TEST_F (SpectrogramContainerTest, ARateReportedAfterTheWindowHasClosedIsIgnored)
{
    processor.prepareToPlay (96000.0, 512);
    container = nullptr;
    pumpPending();
    EXPECT_EQ (processor.getFftProcessor().getSampleRate(), 96000.0);
}

TEST_F (SpectrogramContainerTest, TheMenuTogglesItsParametersInOneGestureEach)
{
    for (const auto& [item, id] : { std::pair { contextMenu::freeze, Params::id::freeze },
                                    std::pair { contextMenu::ruler, Params::id::ruler },
                                    std::pair { contextMenu::keyboard, Params::id::keyboard } })
    {
        const auto before = get (id);
        const GestureCounter all (processor);
        GestureRecorder parameter (*processor.getParameterState().getParameter (id));
        container->carryOut (item);
        EXPECT_EQ (get (id), 1.0f - before) << id;
        EXPECT_EQ (parameter.take(), "[.]");
        EXPECT_EQ (all.numBegun, 1) << "no other parameter is touched";
        EXPECT_EQ (all.numChanges, 1);
        container->carryOut (item);
        EXPECT_EQ (get (id), before) << id;
    }
}

TEST_F (SpectrogramContainerTest, TheMenuSwitchesTheViewAndMarksTheSessionAsChanged)
{
    set (Params::id::internal, 0.0f);
    container->carryOut (contextMenu::view);
    EXPECT_TRUE (processor.getUIView().cleanViewMode.get());
    EXPECT_NEAR (get (Params::id::internal), 0.01f, 1.0e-6f);
    container->carryOut (contextMenu::view);
    EXPECT_FALSE (processor.getUIView().cleanViewMode.get());

    set (Params::id::internal, 0.995f);
    container->carryOut (contextMenu::view);
    EXPECT_EQ (get (Params::id::internal), 0.0f) << "wraps from the end of its range to the beginning";
}

TEST_F (SpectrogramContainerTest, TheMenuOpensTheManualOfThisVersion)
{
    container->carryOut (contextMenu::manual);
    EXPECT_EQ (openedPages.joinIntoString (" "),
               processor.getReleaseNotesUrl() + "/manual.html?s=orlo&v=" + processor.getProductInfo().version);
    EXPECT_TRUE (processor.getReleaseNotesUrl().endsWith ("/releaseNotes/orlo"));
}

TEST_F (SpectrogramContainerTest, TheMenuChoosesThePointsInOneStepOfUndo)
{
    processor.applyInitialSettings();
    auto& undo = processor.getUndoManager();
    container->carryOut (contextMenu::points + int (PointsKept::clicks));
    EXPECT_EQ (processor.getPointsKept(), PointsKept::clicks);
    EXPECT_TRUE (processor.getPresetsManager().isDirty());
    EXPECT_GT (get (Params::id::internal), 0.0f) << "the host does not learn that the session has changed";
    container->carryOut (contextMenu::points + int (PointsKept::lines));
    ASSERT_TRUE (undo.undo());
    EXPECT_EQ (processor.getPointsKept(), PointsKept::clicks);
    ASSERT_TRUE (undo.undo());
    EXPECT_EQ (processor.getPointsKept(), PointsKept::all);
    EXPECT_FALSE (undo.canUndo());
    ASSERT_TRUE (undo.redo());
    EXPECT_EQ (processor.getPointsKept(), PointsKept::clicks);
}

TEST_F (SpectrogramContainerTest, ThePointsReachTheWorkerAndPresets)
{
    container->carryOut (contextMenu::points + int (PointsKept::linesAndClicks));
    processor.updatePictureSettings();
    EXPECT_EQ (processor.getFftProcessor().getPointsKept(), PointsKept::linesAndClicks);

    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("a.mkpreset");
    auto& presets = processor.getPresetsManager();
    presets.savePresetFile (file, false);
    processor.setPointsKept (PointsKept::all);
    ASSERT_TRUE (presets.loadPresetFile (file, &processor.getUndoManager()));
    EXPECT_EQ (processor.getPointsKept(), PointsKept::linesAndClicks);
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (processor.getPointsKept(), PointsKept::all);

    // A preset of an earlier version, which has no such entry, shows all points.
    processor.setPointsKept (PointsKept::lines);
    ASSERT_TRUE (folder.get().getChildFile ("old.mkpreset").replaceWithText ("<Orlo><PARAMS/></Orlo>"));
    ASSERT_TRUE (presets.loadPresetFile (folder.get().getChildFile ("old.mkpreset"), nullptr));
    EXPECT_EQ (processor.getPointsKept(), PointsKept::all);
}

TEST_F (SpectrogramContainerTest, TheMenuTunesTheKeyboardAndMarksTheSessionAsChanged)
{
    set (Params::id::keyboard, 1.0f);
    set (Params::id::internal, 0.0f);
    const auto findA = [this] { return findKeyForFrequency (container->getKeyboard().getKeys(), 415.0f)->noteNumber; };
    EXPECT_EQ (findA(), 68);

    container->carryOut (contextMenu::concertPitch);
    EXPECT_EQ (findA(), 69);
    EXPECT_NEAR (get (Params::id::internal), 0.01f, 1.0e-6f);

    container->carryOut (contextMenu::middleC + 5);
    EXPECT_EQ (container->getTuningControl().getTuning(), (notes::Tuning { 5, 415.0 }));

    for (const auto& key : container->getKeyboard().getKeys())
        EXPECT_TRUE (key.noteNumber != 60 || key.label == "C5");

    EXPECT_NEAR (get (Params::id::internal), 0.02f, 1.0e-6f);
}

TEST_F (SpectrogramContainerTest, TheTuningFollowsAnotherSession)
{
    processor.getUIView().concertPitch = "435";
    ASSERT_TRUE (pumpUntil ([this] { return container->getTuningControl().getTuning().concertPitch == 435.0; }));
}

TEST_F (SpectrogramContainerTest, AConcertPitchIsTypedAndRefusedIfItIsNone)
{
    auto& entry = container->getTuningControl().getEntry();
    EXPECT_FALSE (entry.isVisible());
    container->carryOut (contextMenu::otherConcertPitch);
    ASSERT_TRUE (entry.isVisible());
    EXPECT_TRUE (container->getLocalBounds().contains (entry.getBounds()));
    EXPECT_EQ (entry.getField().getText(), "440");

    entry.getField().setText ("high");
    ASSERT_TRUE (entry.getField().keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_TRUE (pumpUntil ([&] { return ! entry.getField().getHighlightedRegion().isEmpty(); }));
    EXPECT_TRUE (entry.isVisible());
    EXPECT_EQ (container->getTuningControl().getTuning().concertPitch, 440.0);

    entry.getField().setText ("441.5 Hz");
    ASSERT_TRUE (entry.getField().keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_TRUE (pumpUntil ([&] { return ! entry.isVisible(); }));
    EXPECT_EQ (container->getTuningControl().getTuning().concertPitch, 441.5);

    container->carryOut (contextMenu::otherConcertPitch);
    EXPECT_EQ (entry.getField().getText(), "441.5");
    entry.getField().setText ("415");
    ASSERT_TRUE (entry.getField().keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_TRUE (pumpUntil ([&] { return ! entry.isVisible(); }));
    EXPECT_EQ (container->getTuningControl().getTuning().concertPitch, 441.5);
}

TEST_F (SpectrogramContainerTest, TheMenuChoosesTheSourceAndMarksTheSessionAsChanged)
{
    set (Params::id::internal, 0.0f);
    container->carryOut (contextMenu::source + int (Source::side));
    EXPECT_EQ (processor.getUIView().getSource(), Source::side);
    EXPECT_NEAR (get (Params::id::internal), 0.01f, 1.0e-6f);
}

TEST_F (SpectrogramContainerTest, OtherResultsOfTheMenuDoNothing)
{
    const auto state = processor.getStateXml (true)->toString();

    for (const auto item : { 0, -1, 7, 100 })
        container->carryOut (item);

    EXPECT_EQ (processor.getStateXml (true)->toString(), state);
    EXPECT_TRUE (openedPages.isEmpty());
}

//==============================================================================
TEST_F (SpectrogramContainerTest, AnExportContainsWhatTheContainerShows)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("picture");
    set (Params::id::ruler, 1.0f);
    container->exportTo (file);

    const auto written = file.withFileExtension (".png");
    EXPECT_EQ (settings.getSettings()[pluginCore::SettingsIds::lastExportFile].toString(), written.getFullPathName());

    ASSERT_TRUE (pumpUntil ([&] { return written.existsAsFile(); }));
    const auto image = juce::ImageFileFormat::loadFrom (written);
    ASSERT_EQ (image.getBounds(), (juce::Rectangle { 800, 400 }));
    EXPECT_EQ (image.getPixelAt (10, 10), juce::Colours::black) << "the picture";
    EXPECT_EQ (image.getPixelAt (795, 200), container->createPicture().getPixelAt (795, 200)) << "the ruler";
}

TEST_F (SpectrogramContainerTest, AtDoubleResolutionAnExportHasTwiceTheSize)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("picture.png");
    container->getSpectrogram().setDoubleResolution (true);
    container->exportTo (file);
    ASSERT_TRUE (pumpUntil ([&] { return file.existsAsFile(); }));
    EXPECT_EQ (juce::ImageFileFormat::loadFrom (file).getBounds(), (juce::Rectangle { 1600, 800 }));
}

TEST_F (SpectrogramContainerTest, AnExportThatIsCancelledOrFailsEndsSilently)
{
    container->exportTo ({});
    EXPECT_FALSE (settings.getSettings().hasProperty (pluginCore::SettingsIds::lastExportFile));

    const TemporaryFolder folder;
    const auto blocked = folder.get().getChildFile ("file");
    ASSERT_TRUE (blocked.create());
    container->exportTo (blocked.getChildFile ("below/a.png"));
    container = nullptr;
    EXPECT_TRUE (blocked.existsAsFile());
}

TEST_F (SpectrogramContainerTest, AnExportIsCompletedWhenTheWindowClosesRightAfterIt)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("picture.png");
    container->exportTo (file);
    container = nullptr;
    EXPECT_EQ (juce::ImageFileFormat::loadFrom (file).getBounds(), (juce::Rectangle { 800, 400 }));
}

} // namespace
} // namespace mk::orlo::test
