// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the live view in a real window; needs a display.
#include "orlo/display/SpectrogramComponent.h"

#include "orlo/display/Crosshair.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <set>

namespace mk::orlo::test
{
namespace
{

using Modifiers = juce::ModifierKeys;

class SpectrogramComponentTest : public testing::Test
{
protected:
    SpectrogramComponentTest()
    {
        processor.prepareToPlay (44100.0, 512);
        view.setBounds (0, 0, 400, 200);
        view.onMouseMoved = [this] (const juce::MouseEvent& event, float hz) {
            moved.push_back ({ event.position, hz });
        };
        view.onMouseHeld = [this] (const juce::MouseEvent& event, float hz) {
            held.push_back ({ event.position, hz });
        };
        view.onMouseReleased = [this] (const juce::MouseEvent&) { ++numReleased; };
        view.onMouseEntered = [this] (const juce::MouseEvent&) { ++numEntered; };
        view.onMouseExited = [this] (const juce::MouseEvent&) { ++numExited; };
    }

    void show()
    {
        view.addToDesktop (0);
        view.setVisible (true);
        ASSERT_NE (view.getPeer(), nullptr) << "There is no display";
    }

    /** Sends a mouse event as the window system does. Events are far enough apart not to form double clicks. */
    void mouse (float x, float y, Modifiers modifiers = {})
    {
        time += 1000;
        Modifiers::currentModifiers = modifiers; // JUCE reads the modifier keys from here
        view.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse,
                                          { x, y },
                                          modifiers,
                                          juce::MouseInputSource::defaultPressure,
                                          juce::MouseInputSource::defaultOrientation,
                                          time);
    }

    [[nodiscard]] float valueOf (const char* id)
    {
        const auto& parameter = *processor.getParameterState().getParameter (id);
        return parameter.convertFrom0to1 (parameter.getValue());
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    void playNoise (int numBlocks)
    {
        juce::MidiBuffer midi;
        juce::AudioBuffer<float> buffer (2, 512);
        const auto noise = makeReferenceSignal ("noise", 512, 44100.0);

        for (int i = 0; i < numBlocks; ++i)
        {
            for (int channel = 0; channel < 2; ++channel)
                buffer.copyFrom (channel, 0, noise.data(), 512);

            processor.processBlock (buffer, midi);
        }
    }

    ~SpectrogramComponentTest() override { Modifiers::currentModifiers = {}; }

    [[nodiscard]] bool hasPicture() const { return builder.getPicture().getWidth() > 0; }
    [[nodiscard]] juce::Image copyPicture() const
    {
        return builder.getPicture().copyShownPart (builder.isPictureScrolling());
    }

    [[nodiscard]] juce::Image paintView() { return view.createComponentSnapshot (view.getLocalBounds(), true, 1.0f); }

    struct Cursor
    {
        juce::Point<float> position;
        float hz;
    };

    AudioPluginAudioProcessor processor;
    FFTProcessor& worker = processor.getFftProcessor();
    SpectrogramImageBuilder& builder = processor.getImageBuilder();
    SpectrogramComponent view { processor, worker, builder };
    std::vector<Cursor> moved, held;
    int numReleased = 0, numEntered = 0, numExited = 0;
    juce::int64 time = 1000000;
};

TEST_F (SpectrogramComponentTest, AnalysesOnlyWhileItIsVisible)
{
    playNoise (4);
    EXPECT_EQ (worker.getNumSamplesReady(), 0);
    EXPECT_FALSE (builder.isThreadRunning());

    show();
    EXPECT_TRUE (builder.isThreadRunning());
    playNoise (20);
    EXPECT_TRUE (pumpUntil ([this] { return worker.getNumFramesReady() > 0 || hasPicture(); }));

    view.setVisible (false);
    EXPECT_FALSE (builder.isThreadRunning());
    EXPECT_TRUE (pumpUntil ([this] { return worker.getNumSamplesReady() < worker.getHop(); }));
    const auto ready = worker.getNumSamplesReady();
    playNoise (4);
    EXPECT_EQ (worker.getNumSamplesReady(), ready);

    view.setVisible (true);
    EXPECT_TRUE (builder.isThreadRunning());
    view.removeFromDesktop();
    EXPECT_TRUE (pumpUntil ([this] { return ! builder.isThreadRunning(); }));
}

TEST_F (SpectrogramComponentTest, TheViewIsBlackUntilThePictureAppearsAtItsSize)
{
    EXPECT_EQ (paintView().getPixelAt (10, 10), juce::Colours::black);

    show();
    EXPECT_TRUE (pumpUntil (
        [this]
        {
            playNoise (2);
            return hasPicture();
        }));

    EXPECT_EQ (builder.getPicture().getWidth(), 400);
    EXPECT_EQ (builder.getPicture().getHeight(), 200);
}

TEST_F (SpectrogramComponentTest, EachDisplayRefreshTicksInColumns)
{
    auto& clock = processor.getFrameClock();
    const auto count = clock.tickCount.load();
    view.tick (100.0);
    view.tick (100.005); // too soon
    EXPECT_EQ (clock.tickCount.load(), count + 1);

    view.tick (100.1);
    EXPECT_EQ (clock.tickCount.load(), count + 2);
    EXPECT_NEAR (clock.columnsPerTick.load(), 0.1f / 0.0036894f, 0.3f);

    // While a window is dragged no ticks arrive, so one long tick follows.
    view.tick (160.1);
    EXPECT_GT (clock.columnsPerTick.load(), 10000.0f);
}

TEST_F (SpectrogramComponentTest, TheHopFollowsParametersRateAndResolution)
{
    EXPECT_EQ (worker.getHop(), 163);
    set (Params::id::speed, 100.0f);
    EXPECT_EQ (worker.getHop(), 110);
    set (Params::id::fftSize, 0.0f);
    EXPECT_EQ (worker.getHop(), 52);
    set (Params::id::mode, 0.0f);
    EXPECT_EQ (worker.getHop(), 110);

    worker.prepareToPlay (96000.0);
    EXPECT_TRUE (pumpUntil ([this] { return worker.getHop() == 240; }));
    view.setDoubleResolution (true);
    EXPECT_EQ (worker.getHop(), 120);
}

TEST_F (SpectrogramComponentTest, AReservedWindowSizeStillGivesAHop)
{
    set (Params::id::fftSize, 8.0f);
    EXPECT_GE (worker.getHop(), 64);
}

TEST_F (SpectrogramComponentTest, ReadsTheFrequencyUnderACursor)
{
    EXPECT_NEAR (
        view.getFrequencyAt (0.0f), builder.getFrequencyScale().frequencyForPosition (1.0f - 0.5f / 200.0f), 1.0e-3f);
    EXPECT_EQ (view.getFrequencyAt (-50.0f), builder.getFrequencyScale().getMaxFrequency());
    EXPECT_EQ (view.getFrequencyAt (500.0f), builder.getFrequencyScale().getMinFrequency());
}

TEST_F (SpectrogramComponentTest, MovingTheMouseReportsTheFrequency)
{
    show();
    mouse (100.0f, 50.0f);
    EXPECT_GE (numEntered, 1);
    ASSERT_FALSE (moved.empty());
    EXPECT_EQ (moved.back().position, juce::Point (100.0f, 50.0f));
    EXPECT_EQ (moved.back().hz, view.getFrequencyAt (50.0f));
    EXPECT_FALSE (view.isCrosshairVisible());
    EXPECT_TRUE (held.empty());
}

TEST_F (SpectrogramComponentTest, HoldingTheButtonShowsTheCrosshair)
{
    show();
    ASSERT_TRUE (pumpUntil (
        [this]
        {
            playNoise (2);
            return hasPicture();
        }));

    mouse (100.0f, 50.0f);
    mouse (100.0f, 50.0f, Modifiers::leftButtonModifier);
    EXPECT_TRUE (view.isCrosshairVisible());
    ASSERT_EQ (held.size(), 1u);

    const auto picture = paintView();
    EXPECT_EQ (picture.getPixelAt (3, 50).getARGB(), 0xff808080);
    EXPECT_EQ (picture.getPixelAt (100, 190).getARGB(), 0xff808080);
    EXPECT_NE (picture.getPixelAt (3, 51).getARGB(), 0xff808080);

    // Beyond the right and lower edges the crosshair stays on the edge, and the lowest frequency is reported.
    mouse (900.0f, 700.0f, Modifiers::leftButtonModifier);
    ASSERT_EQ (held.size(), 2u);
    EXPECT_EQ (held.back().position.x, 400.0f);
    EXPECT_EQ (held.back().hz, builder.getFrequencyScale().getMinFrequency());

    mouse (900.0f, 700.0f);
    EXPECT_FALSE (view.isCrosshairVisible());
    EXPECT_EQ (numReleased, 1);
}

TEST_F (SpectrogramComponentTest, ShiftClickFreezesAndShowsNoCrosshair)
{
    show();
    mouse (100.0f, 50.0f);

    for (const auto expected : { 1.0f, 0.0f })
    {
        mouse (100.0f, 50.0f, Modifiers::leftButtonModifier | Modifiers::shiftModifier);
        EXPECT_EQ (valueOf (Params::id::freeze), expected);
        mouse (101.0f, 50.0f, Modifiers::leftButtonModifier | Modifiers::shiftModifier);
        EXPECT_FALSE (view.isCrosshairVisible());
        mouse (101.0f, 50.0f, Modifiers::shiftModifier);
        EXPECT_EQ (valueOf (Params::id::freeze), expected);
        mouse (100.0f, 50.0f);
    }

    EXPECT_TRUE (held.empty()) << "a shift-click opens no readout, even if the mouse moves during it";
}

TEST_F (SpectrogramComponentTest, TheMiddleButtonDoesNothing)
{
    show();

    for (const auto modifiers :
         { int (Modifiers::middleButtonModifier), Modifiers::middleButtonModifier | Modifiers::shiftModifier })
    {
        mouse (100.0f, 50.0f);
        mouse (100.0f, 50.0f, modifiers);
        mouse (120.0f, 60.0f, modifiers);
        EXPECT_FALSE (view.isCrosshairVisible());
        mouse (120.0f, 60.0f);
    }

    EXPECT_TRUE (held.empty());
    EXPECT_EQ (valueOf (Params::id::freeze), 0.0f);
}

TEST_F (SpectrogramComponentTest, RightClicksAndCtrlClicksAreLeftToTheMenu)
{
    show();

    for (const auto modifiers :
         { int (Modifiers::rightButtonModifier), Modifiers::leftButtonModifier | Modifiers::ctrlModifier })
    {
        mouse (100.0f, 50.0f);
        mouse (100.0f, 50.0f, modifiers);
        mouse (120.0f, 60.0f, modifiers);
        EXPECT_FALSE (view.isCrosshairVisible());
        EXPECT_TRUE (held.empty());
        mouse (120.0f, 60.0f);
    }

    // A move with the key of such a click held down is not reported either.
    mouse (140.0f, 60.0f);
    const auto numMoved = moved.size();
    mouse (160.0f, 60.0f, Modifiers::ctrlModifier);
    EXPECT_EQ (moved.size(), numMoved);
}

TEST_F (SpectrogramComponentTest, LeavingTheViewIsReported)
{
    show();
    mouse (100.0f, 50.0f);
    mouse (-20.0f, -20.0f);
    EXPECT_EQ (numExited, 1);
}

TEST_F (SpectrogramComponentTest, AskingForDoubleResolutionDoublesThePicture)
{
    const auto isPainted = [] (const juce::Image& picture)
    {
        std::set<juce::uint32> colours;

        for (int y = 0; y < picture.getHeight(); y += 2)
            for (int x = 0; x < picture.getWidth(); x += 20)
                colours.insert (picture.getPixelAt (x, y).getARGB());

        return colours.size() > 3;
    };

    set (Params::id::drawMode, 1.0f); // Scroll
    show();
    view.setDoubleResolution (true);
    ASSERT_TRUE (pumpUntil (
        [&]
        {
            playNoise (2);
            const auto picture = copyPicture();
            return picture.getWidth() == 800 && isPainted (picture);
        }));

    // Stopped, so that the picture does not change during the comparison.
    builder.stopThread (1000);
    const auto picture = copyPicture();
    ASSERT_EQ (picture.getHeight(), 400);

    // If a pixel of the window is two by two pixels of the display, each of these shows its own pixel of the picture.
    const auto painted = view.createComponentSnapshot (view.getLocalBounds(), true, 2.0f);
    ASSERT_EQ (painted.getBounds(), picture.getBounds());
    int numDifferent = 0;

    for (int y = 0; y < picture.getHeight(); ++y)
        for (int x = 0; x < picture.getWidth(); ++x)
            numDifferent += painted.getPixelAt (x, y) != picture.getPixelAt (x, y) ? 1 : 0;

    EXPECT_EQ (numDifferent, 0);
}

TEST_F (SpectrogramComponentTest, DestroyingTheViewStopsTheBuilder)
{
    AudioPluginAudioProcessor other;
    other.prepareToPlay (44100.0, 512);

    for (int i = 0; i < 20; ++i)
    {
        SpectrogramComponent shortLived (other, other.getFftProcessor(), other.getImageBuilder());
        shortLived.setBounds (0, 0, 100, 100);
        shortLived.addToDesktop (0);
        shortLived.setVisible (true);
        EXPECT_TRUE (other.getImageBuilder().isThreadRunning());
    }

    EXPECT_FALSE (other.getImageBuilder().isThreadRunning());
    EXPECT_EQ (other.getFftProcessor().onSampleRateChanged, nullptr);
}

//==============================================================================
TEST (Crosshair, LiesOnWholePixelsOrAtDoubleResolutionOnHalfOnes)
{
    const auto normal = placeCrosshair ({ 10.4f, 20.6f }, 100.0f, 50.0f, false);
    EXPECT_EQ (normal.horizontal, juce::Rectangle (0.0f, 21.0f, 100.0f, 1.0f));
    EXPECT_EQ (normal.vertical, juce::Rectangle (10.0f, 0.0f, 1.0f, 50.0f));

    const auto fine = placeCrosshair ({ 10.4f, 20.6f }, 100.0f, 50.0f, true);
    EXPECT_EQ (fine.horizontal, juce::Rectangle (0.0f, 20.5f, 100.0f, 0.5f));
    EXPECT_EQ (fine.vertical, juce::Rectangle (10.5f, 0.0f, 0.5f, 50.0f));
}

} // namespace
} // namespace mk::orlo::test
