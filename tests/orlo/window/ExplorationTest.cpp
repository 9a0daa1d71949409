// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests when a frozen picture is explored and when no more; needs a display.
#include "ExploreInWindow.h"

#include "tests/support/Transport.h"

#include <thread>

namespace mk::orlo::test
{
namespace
{

class ExplorationTest : public ExploreInWindowTest
{
protected:
    void zoomIn()
    {
        ASSERT_TRUE (getExploration().zoomTime (0.5, 100.0f));
        ASSERT_TRUE (getExplorer().isExploring());
    }
};

TEST_F (ExplorationTest, AFrozenPictureThatNobodyTouchesStays)
{
    freeze();
    const auto frozen = paint();
    waitForTicks();
    EXPECT_FALSE (getExplorer().isExploring());
    EXPECT_FALSE (window->getContainer().getTimeStrip().isVisible());
    EXPECT_TRUE (areSame (paint(), frozen));
}

TEST_F (ExplorationTest, EverySettingDrawsTheFrozenPictureAnew)
{
    const std::vector<std::pair<const char*, float>> settings {
        { Params::id::mode, 0.0f },     { Params::id::fftSize, 1.0f },   { Params::id::speed, 80.0f },
        { Params::id::minFreq, 10.0f }, { Params::id::maxFreq, 50.0f },  { Params::id::freqScale, 0.0f },
        { Params::id::floor, -60.0f },  { Params::id::ceiling, -20.0f }, { Params::id::colourMap, 4.0f },
    };

    for (const auto& [id, value] : settings)
    {
        SCOPED_TRACE (id);
        const auto before = get (id);
        freeze();
        ASSERT_FALSE (getExplorer().isExploring());
        set (id, value);
        ASSERT_TRUE (waitForExploring());
        ASSERT_TRUE (waitForPicture());
        EXPECT_TRUE (getTimes().isHome());

        set (Params::id::freeze, 0.0f);
        ASSERT_TRUE (waitForExploring (false));
        set (id, before);
        waitForTicks();
    }
}

TEST_F (ExplorationTest, AResizedWindowStretchesTheFrozenPictureAndDrawsTheExploredOneAnew)
{
    const auto shrink = [this]
    { window->editor->setSize (window->editor->getWidth() - 182, window->editor->getHeight() - 100); };

    freeze();
    shrink();
    waitForTicks();
    EXPECT_FALSE (getExplorer().isExploring());

    set (Params::id::floor, -60.0f);
    ASSERT_TRUE (waitForExploring());
    shrink();
    ASSERT_TRUE (waitForPicture());
    EXPECT_EQ (getExplorer().getImage().getWidth(), getPicture().getWidth());
}

TEST_F (ExplorationTest, UnfreezingGoesOnAsIfNothingHadBeen)
{
    freeze();
    const auto size = getPicture().getBounds();
    const auto requested = processor.getImageBuilder().getRequestedSize();
    zoomIn();
    EXPECT_NE (getPicture().getBounds(), size) << "strip and bar need room";
    EXPECT_TRUE (window->getContainer().getTimeStrip().isVisible());
    EXPECT_EQ (processor.getImageBuilder().getRequestedSize(), requested);

    set (Params::id::freeze, 0.0f);
    ASSERT_TRUE (waitForExploring (false));
    EXPECT_EQ (getPicture().getBounds(), size);
    EXPECT_EQ (processor.getImageBuilder().getRequestedSize(), requested);
    EXPECT_EQ (processor.getImageBuilder().getPicture().getWidth(), size.getWidth());
    EXPECT_FALSE (window->getContainer().getTimeStrip().isVisible());
}

TEST_F (ExplorationTest, WorksWhileTheHostStands)
{
    set (Params::id::autoFreeze, 1.0f);
    runBlock (processor, false);
    waitForTicks();
    zoomIn();
    runBlock (processor, true);
    EXPECT_TRUE (waitForExploring (false));
}

TEST_F (ExplorationTest, AnotherSampleRateEndsIt)
{
    freeze();
    zoomIn();
    processor.prepareToPlay (96000.0, 512);
    EXPECT_TRUE (waitForExploring (false));
    waitForTicks();
    EXPECT_FALSE (getExploration().zoomTime (0.5, 100.0f)) << "nothing of that rate has been heard";
}

TEST_F (ExplorationTest, TheSoundSurvivesClosingAndReopeningWhileExploring)
{
    freeze();
    zoomIn();
    waitForTicks();
    const auto before = getTimes();
    window = nullptr;
    open();
    ASSERT_TRUE (waitForExploring());
    EXPECT_EQ (getTimes().getSoundEnd(), before.getSoundEnd());
    EXPECT_NEAR (getTimes().getStart(), before.getStart(), 1.0);
    EXPECT_NEAR (getTimes().getLength(), before.getLength(), 1.0);
    EXPECT_TRUE (waitForPicture());

    set (Params::id::freeze, 0.0f);
    ASSERT_TRUE (waitForExploring (false));
    EXPECT_TRUE (processor.getUIView().explored.get().isEmpty());
}

TEST_F (ExplorationTest, ASessionWithoutItsSoundIsNotExplored)
{
    set (Params::id::freeze, 1.0f);
    processor.getUIView().explored = "-1.0 0.5";
    juce::MemoryBlock stored;
    processor.getStateInformation (stored);

    AudioPluginAudioProcessor other { createEditor };
    other.prepareToPlay (44100.0, 512);
    other.setStateInformation (stored.getData(), int (stored.getSize()));
    window = nullptr;
    EditorWindow otherWindow (other);
    ASSERT_TRUE (otherWindow.isOpen);
    const auto& count = other.getFrameClock().tickCount;
    ASSERT_TRUE (pumpUntil ([&] { return count.load (std::memory_order_relaxed) > 3; }));
    EXPECT_FALSE (otherWindow.getPicture().getExplorer().isExploring());
}

TEST_F (ExplorationTest, UndoAndARestoredSessionAreFollowed)
{
    freeze();
    const auto state = processor.getStateXml (true)->toString();
    set (Params::id::fftSize, 0.0f);
    ASSERT_TRUE (waitForExploring());
    EXPECT_EQ (getExplorer().getSettings().hop.windowSize, 256);

    juce::MemoryBlock stored;
    processor.getStateInformation (stored);
    set (Params::id::fftSize, 3.0f);
    ASSERT_TRUE (pumpUntil ([this] { return getExplorer().getSettings().hop.windowSize == 2048; }));
    processor.setStateInformation (stored.getData(), int (stored.getSize()));
    EXPECT_TRUE (pumpUntil ([this] { return getExplorer().getSettings().hop.windowSize == 256; }));
    EXPECT_TRUE (waitForPicture());
}

TEST_F (ExplorationTest, AutomationFromAnotherThreadIsFollowed)
{
    freeze();
    zoomIn();
    std::thread host (
        [this]
        {
            for (int i = 0; i <= 100; ++i)
                set (Params::id::floor, -100.0f + float (i) * 0.5f);
        });
    host.join();
    EXPECT_TRUE (
        pumpUntil ([this] { return juce::approximatelyEqual (getExplorer().getSettings().colours.floorDb, -50.0f); }));
}

TEST_F (ExplorationTest, TheStillAgreesWithThePictureThatItReplaces)
{
    // A tone after noise: the edge lies in the same column of both.
    juce::AudioBuffer<float> silence (2, 512);
    silence.clear();
    juce::MidiBuffer midi;

    for (int i = 0; i < 60; ++i)
    {
        processor.processBlock (silence, midi);
        ASSERT_TRUE (waitForTheWorker());
    }

    ASSERT_TRUE (waitUntilAllIsPainted (processor));
    freeze();
    const auto live = paint();
    ASSERT_TRUE (getExploration().changeTimeView ([] (TimeView& times) { times.goHome(); }));
    ASSERT_TRUE (waitForPicture());
    const auto still = getExplorer().getImage();

    const auto findEdge = [] (const juce::Image& image)
    {
        const auto isLoud = [&image] (int x)
        {
            auto brightness = 0.0f;

            for (int y = 0; y < image.getHeight(); ++y)
                brightness += image.getPixelAt (x, y).getBrightness();

            return brightness > 0.1f * float (image.getHeight());
        };

        auto x = image.getWidth() - 1;

        while (x > 0 && ! isLoud (x))
            --x;

        return (double (x) + 1.0) / double (image.getWidth());
    };

    const auto edge = findEdge (live);
    EXPECT_LT (edge, 0.99);
    EXPECT_GT (edge, 0.5);
    EXPECT_NEAR (findEdge (still), edge, 2.0 / double (still.getWidth()));
}

} // namespace
} // namespace mk::orlo::test
