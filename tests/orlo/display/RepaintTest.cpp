// SPDX-License-Identifier: AGPL-3.0-or-later
// Compares what a window shows that paints only what has changed with all of it painted anew, and checks how much that
// is. Needs no display.
#include "orlo/display/SpectrogramContainer.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/RepaintRecorder.h"
#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ostream>
#include <thread>

namespace mk::orlo::test
{
namespace
{

using Modifiers = juce::ModifierKeys;

/** A container in a window, with a builder without its thread. */
class RepaintTest : public testing::Test
{
protected:
    RepaintTest()
    {
        processor.prepareToPlay (44100.0, 512);
        window.setSize (320, 180);
        window.addAndMakeVisible (container);
        container.setBounds (window.getLocalBounds());
        window.setVisible (true);
        EXPECT_TRUE (pumpUntil ([this] { return builder.isThreadRunning(); })) << "the view does not notice its window";
        builder.stopThread (1000);
        set (Params::id::mode, 0.0f);
        set (Params::id::ruler, 1.0f);
        set (Params::id::keyboard, 1.0f);
        pumpPending();

        // The audio thread sets window and mode. After one window of silence, every hop makes a frame.
        juce::AudioBuffer<float> silence (2, 4096);
        silence.clear();
        juce::MidiBuffer midi;
        processor.processBlock (silence, midi);
        EXPECT_TRUE (pumpUntil ([this] { return worker.getNumSamplesReady() < worker.getHop(); }));

        for (int i = 0; i < 3; ++i)
        {
            play (20, 0.0f);
            tick();
        }

        EXPECT_GT (builder.getPicture().getWidth(), 0) << "there is no picture";
        static_cast<void> (recorder.take());
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    /** Fewer frames than the queue holds. */
    void play (int numFrames, float loudness)
    {
        for (; numFrames > 0; --numFrames)
        {
            std::vector<float> block (size_t (worker.getHop()));

            for (auto& sample : block)
                sample = (random.nextFloat() - 0.5f) * loudness;

            const auto wanted = worker.getNumFramesReady() + 1;
            worker.pushSamples (block.data(), int (block.size()));
            ASSERT_TRUE (pumpUntil ([&] { return worker.getNumFramesReady() >= wanted; }));
        }
    }

    /** Draws all frames that wait, and lets the view fetch the columns. */
    void tick()
    {
        builder.processTick (50.0f);
        view.tick (time += 0.02);
    }

    void mouse (void (SpectrogramComponent::*handler) (const juce::MouseEvent&), juce::Point<float> position)
    {
        const auto now = juce::Time::getCurrentTime();
        const juce::MouseEvent event (juce::Desktop::getInstance().getMainMouseSource(),
                                      position,
                                      Modifiers::leftButtonModifier,
                                      juce::MouseInputSource::defaultPressure,
                                      juce::MouseInputSource::defaultOrientation,
                                      juce::MouseInputSource::defaultRotation,
                                      juce::MouseInputSource::defaultTiltX,
                                      juce::MouseInputSource::defaultTiltY,
                                      &view,
                                      &view,
                                      now,
                                      position,
                                      now,
                                      1,
                                      false);
        (view.*handler) (event);
    }

    AudioPluginAudioProcessor processor;
    FFTProcessor& worker = processor.getFftProcessor();
    SpectrogramImageBuilder& builder = processor.getImageBuilder();
    FakeWindow window;
    RepaintRecorder& recorder = RepaintRecorder::attachTo (window);
    SpectrogramContainer container { processor, worker, builder };
    SpectrogramComponent& view = container.getSpectrogram();
    juce::Random random { 1 };
    double time = 1000.0;
};

TEST_F (RepaintTest, StaticRepaintsOnlyTheColumnsThatHaveChanged)
{
    for (int i = 0; i < 20; ++i)
    {
        const auto writeX = builder.getPicture().getWriteX();
        play (2, 1.0f);
        tick();
        const auto area = recorder.take().getBounds();
        EXPECT_EQ (area.getWidth(), 4) << "two columns, and one on either side for a scaled screen";
        EXPECT_EQ (area.getX(), writeX - 1);
        EXPECT_TRUE (view.getBounds().contains (area));
    }
}

TEST_F (RepaintTest, NothingIsRepaintedWhileNothingIsNew)
{
    for (const auto drawMode : { 0.0f, 1.0f })
    {
        set (Params::id::drawMode, drawMode);
        play (20, 1.0f);
        tick();
        static_cast<void> (recorder.take());
        const auto dueCount = processor.getFrameClock().dueCount.load();

        for (int i = 0; i < 100; ++i)
            tick();

        EXPECT_TRUE (recorder.take().isEmpty());
        EXPECT_EQ (processor.getFrameClock().dueCount.load(), dueCount) << "the builder is not woken";
    }
}

TEST_F (RepaintTest, SilenceThatHasScrolledThroughIsNotRepainted)
{
    for (const auto drawMode : { 0.0f, 1.0f })
    {
        set (Params::id::drawMode, drawMode);
        play (20, 1.0f);
        tick();

        for (int i = 0; i < 20; ++i)
        {
            play (40, 0.0f);
            tick();
        }

        static_cast<void> (recorder.take());

        for (int i = 0; i < 20; ++i)
        {
            play (5, 0.0f);
            tick();
        }

        EXPECT_TRUE (recorder.take().isEmpty());
        play (5, 1.0f); // a single hop at the end of the window is hardly louder than the floor
        tick();
        EXPECT_FALSE (recorder.take().isEmpty());
    }
}

TEST_F (RepaintTest, ThereAreAtLeastFifteenMillisecondsFromOneRepaintToTheNext)
{
    set (Params::id::drawMode, 1.0f);
    play (3, 1.0f);
    tick();
    static_cast<void> (recorder.take());

    for (const auto refreshRate : { 50.0, 60.0, 75.0, 100.0, 120.0, 144.0, 240.0 })
    {
        auto lastRepaint = 0.0;
        int numRepaints = 0;

        for (int i = 0; i < int (refreshRate); ++i)
        {
            play (1, 1.0f);
            builder.processTick (1.0f);
            view.tick (time += 1.0 / refreshRate);

            if (! recorder.take().isEmpty())
            {
                ++numRepaints;
                EXPECT_GE (time - lastRepaint, 0.015 - 1.0e-9) << refreshRate;
                lastRepaint = time;
            }
        }

        EXPECT_GE (numRepaints, 33) << refreshRate;
    }
}

TEST_F (RepaintTest, AValueSetOnAnotherThreadIsNoticedAtTheNextTick)
{
    const auto hop = worker.getHop();
    std::thread ([this] { set (Params::id::speed, 100.0f); }).join();
    EXPECT_EQ (worker.getHop(), hop);
    tick();
    EXPECT_NE (worker.getHop(), hop);
}

TEST_F (RepaintTest, AMovedCrosshairIsRepaintedWhereItWasAndIs)
{
    // Without the container's readout, which moves too.
    view.onMouseHeld = [] (const juce::MouseEvent&, float) {};
    mouse (&SpectrogramComponent::mouseDown, { 50.0f, 40.0f });
    static_cast<void> (recorder.take());
    mouse (&SpectrogramComponent::mouseDrag, { 80.0f, 60.0f });
    const auto areas = recorder.take();

    for (const auto& point : { juce::Point { 2, 40 }, { 2, 60 }, { 50, 90 }, { 80, 90 } })
        EXPECT_TRUE (areas.containsPoint (point)) << point.toString();

    for (const auto& point : { juce::Point { 2, 50 }, { 2, 90 }, { 65, 90 } })
        EXPECT_FALSE (areas.containsPoint (point)) << point.toString();
}

//==============================================================================
struct Scene
{
    float scale = 1.0f;
    int seed = 0;
};

std::ostream& operator<< (std::ostream& stream, const Scene& scene)
{
    return stream << "scale " << scene.scale << ", seed " << scene.seed;
}

class RepaintedPictureTest : public RepaintTest, public testing::WithParamInterface<Scene>
{
protected:
    [[nodiscard]] juce::Rectangle<int> toPixels (juce::Rectangle<int> area) const
    {
        return (area.toDouble() * double (GetParam().scale)).getSmallestIntegerContainer();
    }

    /** Paints the areas as JUCE's windows on Linux do. */
    void paint (juce::Image& image, const juce::RectangleList<int>& areas)
    {
        juce::RectangleList<int> clip;

        for (const auto& area : areas)
            clip.add (toPixels (area));

        for (const auto& area : clip)
            image.clear (area);

        juce::Graphics g (image);
        g.reduceClipRegion (clip);
        g.addTransform (juce::AffineTransform::scale (GetParam().scale));
        window.paintEntireComponent (g, true);
    }

    [[nodiscard]] juce::Image makeScreen() const
    {
        const auto pixels = toPixels (window.getLocalBounds());
        return { juce::Image::ARGB, pixels.getWidth(), pixels.getHeight(), true, juce::SoftwareImageType() };
    }

    void expectEqual (const juce::Image& screen, const juce::Image& anew)
    {
        // JUCE follows a curve in steps from where the painted area begins, so a round corner of the readout is not
        // exactly the same when only a part of it is painted. What lies between two pixels may be rounded differently.
        constexpr int rounding = 1, corner = 40;
        const auto tag =
            container.getReadout().isVisible()
                ? toPixels (window.getLocalArea (&container.getReadout(), container.getReadout().getLocalBounds()))
                : juce::Rectangle<int> {};
        const juce::Image::BitmapData shown (screen, juce::Image::BitmapData::readOnly);
        const juce::Image::BitmapData wanted (anew, juce::Image::BitmapData::readOnly);

        for (int y = 0; y < shown.height; ++y)
            for (int x = 0; x < shown.width; ++x)
            {
                const auto colour = shown.getPixelColour (x, y), other = wanted.getPixelColour (x, y);
                const auto difference = juce::jmax (std::abs (colour.getRed() - other.getRed()),
                                                    std::abs (colour.getGreen() - other.getGreen()),
                                                    std::abs (colour.getBlue() - other.getBlue()),
                                                    std::abs (colour.getAlpha() - other.getAlpha()));
                ASSERT_LE (difference, tag.contains (x, y) ? corner : rounding)
                    << x << ", " << y << ": " << colour.toString() << " instead of " << other.toString() << ", readout "
                    << tag.toString();
            }
    }

    void changeSomething()
    {
        const auto pick = [this] (float number) { return std::floor (random.nextFloat() * number); };

        switch (random.nextInt (24))
        {
            case 0: set (Params::id::drawMode, pick (2.0f)); break;
            case 1: view.setDoubleResolution (random.nextBool()); break;
            case 2: resize(); break;
            case 3: set (Params::id::ruler, pick (2.0f)); break;
            case 4: set (Params::id::keyboard, pick (2.0f)); break;
            case 5: builder.setColourMap (random.nextInt (46)); break;
            case 6: set (Params::id::floor, -100.0f + pick (50.0f)); break;
            case 7: set (Params::id::minFreq, pick (20.0f)); break;
            case 8: container.getHelpLine().setDefaultText (random.nextBool() ? "A line of help" : ""); break;
            case 9: mouse (&SpectrogramComponent::mouseDown, pickPosition()); break;
            case 10:
            case 11:
            case 12: mouse (&SpectrogramComponent::mouseDrag, pickPosition()); break;
            case 13: mouse (&SpectrogramComponent::mouseUp, pickPosition()); break;
            case 14: mouse (&SpectrogramComponent::mouseMove, pickPosition()); break;
            case 15: loudness = pick (2.0f); break;
            default: break;
        }

        play (random.nextInt (6) == 0 ? random.nextInt (45) : random.nextInt (6), loudness);
        tick();
        pumpPending();
    }

    void resize()
    {
        // Also to twice or half the width, where columns are doubled or joined.
        const auto width = random.nextBool() ? 100 + random.nextInt (250) : random.nextBool() ? 320 : 160;
        window.setSize (width, 60 + random.nextInt (130));
        container.setBounds (window.getLocalBounds().withTrimmedLeft (random.nextInt (4)));
    }

    [[nodiscard]] juce::Point<float> pickPosition()
    {
        return { random.nextFloat() * float (view.getWidth() + 40) - 20.0f,
                 random.nextFloat() * float (view.getHeight() + 40) - 20.0f };
    }

    float loudness = 1.0f;
};

TEST_P (RepaintedPictureTest, EqualsOnePaintedAnew)
{
    random.setSeed (GetParam().seed);
    auto screen = makeScreen();
    static_cast<void> (recorder.take());
    paint (screen, window.getLocalBounds());

    for (int turn = 0; turn < (hasThreadSanitizer ? 15 : 150); ++turn)
    {
        changeSomething();

        // Some refreshes of the display are missed.
        if (random.nextInt (5) == 0)
            continue;

        auto areas = recorder.take();

        if (const auto pixels = toPixels (window.getLocalBounds()); screen.getBounds() != pixels)
        {
            screen = makeScreen();
            areas = window.getLocalBounds();
        }

        paint (screen, areas);
        auto anew = makeScreen();
        paint (anew, window.getLocalBounds());
        expectEqual (screen, anew);

        if (HasFailure())
            FAIL() << "at turn " << turn;
    }
}

[[nodiscard]] std::vector<Scene> makeScenes()
{
    std::vector<Scene> scenes;

    for (const auto scale : { 1.0f, 1.25f, 1.5f, 2.0f })
        for (int seed = 1; seed <= 3; ++seed)
            scenes.push_back ({ scale, seed });

    return scenes;
}

INSTANTIATE_TEST_SUITE_P (Scales, RepaintedPictureTest, testing::ValuesIn (makeScenes()));

} // namespace
} // namespace mk::orlo::test
